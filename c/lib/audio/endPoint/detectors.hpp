// What the detectors share, and what each of them looks at: its frames, the level of each of them and the
// thresholds on the levels. Internal to the room.
#pragma once

#include "audio/endPoint/parameters.hpp"
#include "audio/endPoint/segment.hpp"
#include "audio/framing/sampleSource.hpp"

#include <cstddef>
#include <vector>

namespace wavepitch::endPoint {

/// In samples.
struct FrameLayout {
    int frameSize;
    int overlap;
};

// The frames of the detectors that have their own at every sample rate.
inline constexpr FrameLayout twoThresholdFrames{512, 192};
inline constexpr FrameLayout volumeAndZcrFrames{320, 240};
inline constexpr FrameLayout characterFrames{256, 86};
inline constexpr FrameLayout handsetFrames{256, 128};

using Levels = std::vector<int>;

/// The volumes of a recording's whole frames (wave2volume, method 1).
Levels frameVolumes(framing::SampleSource& wave, FrameLayout frames);
Levels frameVolumes(const int* wave, int waveLen, FrameLayout frames);

// The features of a recording's whole frames, into an array with room for them.
void findVolumes(framing::SampleSource& wave, FrameLayout frames, int* volume);
void findAshods(framing::SampleSource& wave, FrameLayout frames, int order, int* ashod);

/// lowest + (highest - lowest) / ratio, the division truncating toward zero. A ratio of 0 gives the largest
/// int: the limit that small ratios run to, which no level is above.
int levelThreshold(int lowest, int highest, int ratio);

struct Thresholds {
    double low;
    double high;
};

/// Of epdByVolHod: (volume + ASHOD) / 2, truncated.
Levels volumesAndAshods(framing::SampleSource& wave, const EPDPARAM& epdParam);

/// Of epdByVol and epdByVolHod, of at least one level: inside their range without about the 32nd part at
/// either end.
int rangeThreshold(Levels level, int ratio);

/// The segments of epdByVol and those of epdByVolHod.
SegmentArray segmentsByVolume(framing::SampleSource& wave, int fs, const EPDPARAM& epdParam, int& segNum);
SegmentArray segmentsByVolumeAndAshod(framing::SampleSource& wave, int fs, const EPDPARAM& epdParam,
                                      int& segNum);

/// Of epdByVol2, of at least one volume. Whole numbers.
Thresholds twoThresholds(const Levels& volume);

/// Of epdByVolZcr: a core's threshold is the high one, that of its neighbours the low one.
Thresholds volumeAndZcrThresholds(const Levels& volume);

/// Of the character detectors: the energies in decibels, -2147483647 of a frame of zeros.
///
/// @param wave  without its mean.
std::vector<double> decibels(const double* wave, int waveLen);

/// Of the character detectors, of at least one level.
Thresholds decibelThresholds(const std::vector<double>& level);

/// A frame of the handset detector: the sum of the absolute deviations from its mean, and their crossings.
struct Voice {
    double volume = 0.0;
    double zcr = 0.0;
};

/// The first frame that the handset detector may mark. The one before it still counts for the thresholds.
std::size_t firstVoice(int fs);

/// The whole frames of a rescaled recording; those at the front that do not count are 0.
std::vector<Voice> voicesOf(const double* wave, int waveLen, int fs);

/// What a marked frame must exceed in volume and stay below in crossings.
Voice voiceThresholds(const std::vector<Voice>& voices);

} // namespace wavepitch::endPoint
