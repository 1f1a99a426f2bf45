#include "audio/endPoint/twoThreshold.hpp"

#include "audio/endPoint/curves.hpp"
#include "audio/endPoint/levelThreshold.hpp"
#include "audio/endPoint/segment.hpp"
#include "audio/endPoint/volume.hpp"
#include "audio/endPoint/wholeFrames.hpp"
#include "utility/file/numbers.hpp"
#include "utility/rounding.hpp"

#include <numeric>

#include "mex.h"

namespace {

constexpr int frameSize = endPointCurve::vol2Frames.frameSize;
constexpr int overlap = endPointCurve::vol2Frames.overlap;

struct Thresholds {
    int low;
    int high;
};

/// Extends sound backward, then forward.
void markSound(const int* volume, int frameNum, Thresholds threshold, int* on) {
    for (int i = 0; i < frameNum; ++i) on[i] = volume[i] >= threshold.high ? 1 : 0;
    for (int i = frameNum - 2; i >= 0; --i)
        if (on[i + 1] == 1 && volume[i] >= threshold.low) on[i] = 1;
    for (int i = 1; i < frameNum; ++i)
        if (on[i - 1] == 1 && volume[i] >= threshold.low) on[i] = 1;
}

/// High is 20 times the smallest volume, but not above a quarter of the largest, and where that is below a
/// 128th of the largest, about a 64th of it. Low is half of high.
Thresholds thresholdsOf(const std::vector<int>& volume) {
    const auto [least, most] = std::minmax_element(volume.begin(), volume.end());
    const std::int64_t minVol = *least;
    const std::int64_t maxVol = *most;
    std::int64_t low = 10 * minVol;
    if (maxVol / 4 < 20 * minVol) low = maxVol / 8;
    if (128 * (2 * low) < maxVol) low = maxVol / 128;
    return {clampToInt(low), clampToInt(2 * low)};
}

std::vector<int> volumes(const int* wave, int waveLen) {
    auto volume = valuePerFrame<int>(waveLen, frameSize, overlap);
    wave2volume(wave, waveLen, frameSize, overlap, volume.data(), 1);
    return volume;
}

} // namespace

endPointCurve::Curve endPointCurve::ofVol2(const int* wave, int waveLen) {
    const std::vector<int> volume = volumes(wave, waveLen);
    Curve curve{{volume.begin(), volume.end()}, {}};
    if (volume.empty()) return curve;
    const Thresholds threshold = thresholdsOf(volume);
    curve.thresholds = {static_cast<double>(threshold.low), static_cast<double>(threshold.high)};
    return curve;
}

int cAudioTwoThreshold::epdByVol2(const int* wave, int waveLen, int, int* endPoint, int) {
    const std::vector<int> volume = volumes(wave, waveLen);
    if (volume.empty()) return 0;
    const auto frameNum = static_cast<int>(volume.size());
    std::vector<int> on(volume.size());
    markSound(volume.data(), frameNum, thresholdsOf(volume), on.data());

    int segNum = 0;
    const SegmentArray segments(segmentFind(on.data(), frameNum, &segNum));
    for (const SEGMENT* s = segments.get(); s != segments.get() + segNum; ++s) {
        *endPoint++ = s->begin;
        *endPoint++ = s->end;
    }
    return 2 * segNum;
}

void cAudioTwoThreshold::volume2voiced(const int* volume, int frameNum, int, const epdStruct* epd,
                                       int* voiced) {
    if (frameNum < 1) return;
    const auto [least, most] = std::minmax_element(volume, volume + frameNum);
    const Thresholds threshold{levelThreshold(*least, *most, truncateToInt(epd->volTh1Ratio)),
                               levelThreshold(*least, *most, truncateToInt(epd->volTh2Ratio))};
    vecWrite(&threshold.low, 1, "volTh1.txt");
    vecWrite(&threshold.high, 1, "volTh2.txt");
    mexPrintf("volTh1=%d, volTh2=%d, maxVol=%d, minVol=%d\n", threshold.low, threshold.high, *most, *least);
    markSound(volume, frameNum, threshold, voiced);
}

int cAudioTwoThreshold::getVolumeThreshold(const int* volume, int, int n, int d) {
    constexpr int otherwise = 512;
    if (d == 0) return otherwise;
    const std::int64_t sum = std::accumulate(volume, volume + std::max(n, 0), std::int64_t{0});
    const std::int64_t mean = (sum + d / 2) / d;
    return mean < 128 || mean > 2560 ? otherwise : static_cast<int>(mean);
}
