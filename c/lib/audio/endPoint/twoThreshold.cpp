// Two thresholds (hysteresis): a frame that reaches the high one is sound, and so is every frame that is
// joined to one by frames which all reach the low one.
#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "utility/file/numbers.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "mex.h"

namespace {

using wavepitch::endPoint::Thresholds;

/// Extends sound backward, then forward.
void markSound(const int* volume, int frameNum, Thresholds threshold, int* on) {
    for (int i = 0; i < frameNum; ++i) on[i] = volume[i] >= threshold.high ? 1 : 0;
    for (int i = frameNum - 2; i >= 0; --i)
        if (on[i + 1] == 1 && volume[i] >= threshold.low) on[i] = 1;
    for (int i = 1; i < frameNum; ++i)
        if (on[i - 1] == 1 && volume[i] >= threshold.low) on[i] = 1;
}

} // namespace

/// High is 20 times the smallest volume, but not above a quarter of the largest, and where that is below a
/// 128th of the largest, about a 64th of it. Low is half of high.
Thresholds wavepitch::endPoint::twoThresholds(const Levels& volume) {
    const auto [least, most] = std::minmax_element(volume.begin(), volume.end());
    const std::int64_t minVol = *least;
    const std::int64_t maxVol = *most;
    std::int64_t low = 10 * minVol;
    if (maxVol / 4 < 20 * minVol) low = maxVol / 8;
    if (128 * (2 * low) < maxVol) low = maxVol / 128;
    return {static_cast<double>(clampToInt(low)), static_cast<double>(clampToInt(2 * low))};
}

int cAudioEndPoint::epdByVol2(const int* wave, int waveLen, int, int* endPoint, int) {
    using namespace wavepitch::endPoint;
    const Levels volume = frameVolumes(wave, waveLen, twoThresholdFrames);
    if (volume.empty()) return 0;
    const auto frameNum = static_cast<int>(volume.size());
    std::vector<int> on(volume.size());
    markSound(volume.data(), frameNum, twoThresholds(volume), on.data());

    int segNum = 0;
    const SegmentArray segments(segmentFind(on.data(), frameNum, &segNum));
    for (const SEGMENT* s = segments.get(); s != segments.get() + segNum; ++s) {
        *endPoint++ = s->begin;
        *endPoint++ = s->end;
    }
    return 2 * segNum;
}

void cAudioEndPoint::volume2voiced(const int* volume, int frameNum, int, const epdStruct* epd, int* voiced) {
    using wavepitch::endPoint::levelThreshold;
    if (frameNum < 1) return;
    const auto [least, most] = std::minmax_element(volume, volume + frameNum);
    const int low = levelThreshold(*least, *most, truncateToInt(epd->volTh1Ratio));
    const int high = levelThreshold(*least, *most, truncateToInt(epd->volTh2Ratio));
    vecWrite(&low, 1, "volTh1.txt");
    vecWrite(&high, 1, "volTh2.txt");
    mexPrintf("volTh1=%d, volTh2=%d, maxVol=%d, minVol=%d\n", low, high, *most, *least);
    markSound(volume, frameNum, {static_cast<double>(low), static_cast<double>(high)}, voiced);
}

int cAudioEndPoint::getVolumeThreshold(const int* volume, int, int n, int d) {
    constexpr int otherwise = 512;
    if (d == 0) return otherwise;
    const std::int64_t sum = std::accumulate(volume, volume + std::max(n, 0), std::int64_t{0});
    const std::int64_t mean = (sum + d / 2) / d;
    return mean < 128 || mean > 2560 ? otherwise : static_cast<int>(mean);
}
