// 1. A value for each frame: its volume, or the mean of its volume and its ASHOD.
// 2. The range of the values, robustly: the k-th smallest and the k-th largest, k about one frame in 32.
// 3. Frames above a threshold inside that range are on; runs of them are segments.
// 4. Short segments go.
// 5. The last segment that is left goes if it is detached: short, and far after the one before.
#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "audio/framing/sampleSource.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdint>

namespace wavepitch::endPoint {

Levels volumesAndAshods(framing::SampleSource& wave, const EPDPARAM& epdParam) {
    const FrameLayout frames{epdParam.frameSize, epdParam.overlap};
    Levels level = frameVolumes(wave, frames);
    Levels ashod(level.size());
    findAshods(wave, frames, epdParam.diffOrder, ashod.data());
    std::transform(level.begin(), level.end(), ashod.begin(), level.begin(),
                   [](std::int64_t v, std::int64_t h) { return static_cast<int>((v + h) / 2); });
    return level;
}

int rangeThreshold(Levels level, int ratio) {
    const auto frameNum = static_cast<int>(level.size());
    const int k = std::max(1, myRound(static_cast<float>(frameNum * 0.03125)));
    const auto low = level.begin() + (k - 1);
    const auto high = level.begin() + (frameNum - k);
    std::nth_element(level.begin(), low, level.end());
    const int lowest = *low;
    std::nth_element(level.begin(), high, level.end());
    return levelThreshold(lowest, *high, ratio);
}

} // namespace wavepitch::endPoint

namespace {

using wavepitch::endPoint::Levels;

/// Frames in a duration, each step in single precision.
int framesIn(float seconds, int fs, const EPDPARAM& epdParam) {
    const auto step = static_cast<float>(std::int64_t{epdParam.frameSize} - epdParam.overlap);
    return myRound(seconds * static_cast<float>(fs) / step);
}

/// @return  the end of the segments that are left.
SEGMENT* withoutShort(SEGMENT* first, SEGMENT* last, int minFrames) {
    return std::remove_if(first, last, [=](const SEGMENT& s) { return s.duration <= minFrames; });
}

SEGMENT* withoutDetached(SEGMENT* first, SEGMENT* last, int maxSilence, int minFrames) {
    if (last - first < 2) return last;
    const SEGMENT& word = last[-1];
    const bool detached = word.begin - last[-2].end > maxSilence && word.duration <= minFrames;
    return detached ? last - 1 : last;
}

SegmentArray segmentsOf(Levels level, int ratio, int fs, const EPDPARAM& epdParam, int& segNum) {
    segNum = 0;
    if (level.empty()) return SegmentArray(segmentFind(level.data(), 0, &segNum));
    const int threshold = wavepitch::endPoint::rangeThreshold(level, ratio);
    for (int& value : level) value = value > threshold ? 1 : 0;
    SegmentArray segments(segmentFind(level.data(), static_cast<int>(level.size()), &segNum));
    SEGMENT* first = segments.get();
    SEGMENT* last = withoutShort(first, first + segNum, framesIn(epdParam.minSegment, fs, epdParam));
    last = withoutDetached(first, last, framesIn(epdParam.maxSilBetweenWord, fs, epdParam),
                           framesIn(epdParam.minLastWordDuration, fs, epdParam));
    segNum = static_cast<int>(last - first);
    return segments;
}

} // namespace

SegmentArray wavepitch::endPoint::segmentsByVolume(framing::SampleSource& wave, int fs,
                                                   const EPDPARAM& epdParam, int& segNum) {
    Levels volume = frameVolumes(wave, {epdParam.frameSize, epdParam.overlap});
    return segmentsOf(std::move(volume), epdParam.volRatio, fs, epdParam, segNum);
}

SegmentArray wavepitch::endPoint::segmentsByVolumeAndAshod(framing::SampleSource& wave, int fs,
                                                           const EPDPARAM& epdParam, int& segNum) {
    return segmentsOf(volumesAndAshods(wave, epdParam), epdParam.vhRatio, fs, epdParam, segNum);
}

SEGMENT* cAudioEndPoint::epdByVol(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam,
                                  int* segNum) {
    wavepitch::framing::IntSamples samples(wave, waveLen);
    return wavepitch::endPoint::segmentsByVolume(samples, fs, epdParam, *segNum).release();
}

SEGMENT* cAudioEndPoint::epdByVolHod(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam,
                                     int* segNum) {
    wavepitch::framing::IntSamples samples(wave, waveLen);
    return wavepitch::endPoint::segmentsByVolumeAndAshod(samples, fs, epdParam, *segNum).release();
}
