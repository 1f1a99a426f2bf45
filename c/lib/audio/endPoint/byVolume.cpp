// 1. A value for each frame: its volume, or the mean of its volume and its ASHOD.
// 2. The range of the values, robustly: the k-th smallest and the k-th largest, k about one frame in 32.
// 3. Frames above a threshold inside that range are on; runs of them are segments.
// 4. Short segments go.
// 5. The last segment that is left goes if it is detached: short, and far after the one before.
#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdint>

namespace wavepitch::endPoint {

Levels volumesAndAshods(const int* wave, int waveLen, const EPDPARAM& epdParam) {
    Levels level = frameVolumes(wave, waveLen, {epdParam.frameSize, epdParam.overlap});
    Levels ashod(level.size());
    cAudioEndPoint::wave2ashod(wave, waveLen, epdParam.frameSize, epdParam.overlap, ashod.data(),
                               epdParam.diffOrder);
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

SEGMENT* segmentsOf(Levels level, int ratio, int fs, const EPDPARAM& epdParam, int* segNum) {
    *segNum = 0;
    if (level.empty()) return segmentFind(level.data(), 0, segNum);
    const int threshold = wavepitch::endPoint::rangeThreshold(level, ratio);
    for (int& value : level) value = value > threshold ? 1 : 0;
    SEGMENT* segments = segmentFind(level.data(), static_cast<int>(level.size()), segNum);
    SEGMENT* last = withoutShort(segments, segments + *segNum, framesIn(epdParam.minSegment, fs, epdParam));
    last = withoutDetached(segments, last, framesIn(epdParam.maxSilBetweenWord, fs, epdParam),
                           framesIn(epdParam.minLastWordDuration, fs, epdParam));
    *segNum = static_cast<int>(last - segments);
    return segments;
}

} // namespace

SEGMENT* cAudioEndPoint::epdByVol(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam,
                                  int* segNum) {
    Levels volume = wavepitch::endPoint::frameVolumes(wave, waveLen, {epdParam.frameSize, epdParam.overlap});
    return segmentsOf(std::move(volume), epdParam.volRatio, fs, epdParam, segNum);
}

SEGMENT* cAudioEndPoint::epdByVolHod(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam,
                                     int* segNum) {
    Levels level = wavepitch::endPoint::volumesAndAshods(wave, waveLen, epdParam);
    return segmentsOf(std::move(level), epdParam.vhRatio, fs, epdParam, segNum);
}
