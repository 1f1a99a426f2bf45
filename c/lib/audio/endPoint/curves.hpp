// What the detectors look at, for who draws what a detector has seen: a curve with a value for each whole
// frame, and the thresholds on it.
#pragma once

#include "audio/endPoint/epdParam.hpp"

#include <vector>

namespace endPointCurve {

/// The frames of a detector that has its own at every sample rate, in samples.
struct FrameLayout {
    int frameSize;
    int overlap;
};

inline constexpr FrameLayout vol2Frames{512, 192};     ///< of epdByVol2
inline constexpr FrameLayout volZcrFrames{320, 240};   ///< of epdByVolZcr
inline constexpr FrameLayout characterFrames{256, 86}; ///< of charEndPointDetect and sentenceEndPointDetect
inline constexpr FrameLayout handsetFrames{256, 128};  ///< of endPointDetect4quokka

struct Curve {
    std::vector<double> values; ///< one for each whole frame
    std::vector<double>
        thresholds; ///< one, or the low and the high one; none without a frame to take them from
};

/// Of epdByVol: volumes.
Curve ofVol(const int* wave, int waveLen, const EPDPARAM& epdParam);

/// Of epdByVolHod: (volume + ASHOD) / 2, truncated.
Curve ofVolHod(const int* wave, int waveLen, const EPDPARAM& epdParam);

/// Of epdByVol2: volumes.
Curve ofVol2(const int* wave, int waveLen);

/// Of epdByVolZcr: volumes.
Curve ofVolZcr(const int* wave, int waveLen);

/// Of charEndPointDetect: energies in decibels, -2147483647 of a frame of zeros.
///
/// @param wave  as the detector leaves it: without its mean.
Curve ofCharacters(const double* wave, int waveLen);

/// Of endPointDetect4quokka: sums of the absolute deviations from each frame's mean, 0 for frames at the
/// front that do not count.
///
/// @param wave  as the detector leaves it: rescaled.
Curve ofHandset(const double* wave, int waveLen, int fs);

} // namespace endPointCurve
