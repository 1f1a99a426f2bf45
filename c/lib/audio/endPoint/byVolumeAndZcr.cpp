#include "audio/endPoint/byVolumeAndZcr.hpp"

#include "audio/endPoint/curves.hpp"
#include "audio/endPoint/volume.hpp"
#include "audio/endPoint/wholeFrames.hpp"
#include "audio/endPoint/zeroCrossing.hpp"

namespace {

constexpr int frameSize = endPointCurve::volZcrFrames.frameSize;
constexpr int overlap = endPointCurve::volZcrFrames.overlap;
constexpr double coreShare = 0.125; // of the largest volume
constexpr double neighbourShare = 0.0625;

using Levels = std::vector<int>;

/// A first and a last frame; nothing, while first is greater.
struct Span {
    int first;
    int last;
};

int largestOf(const Levels& levels) {
    return levels.empty() ? 0 : *std::max_element(levels.begin(), levels.end());
}

Span framesAbove(const Levels& levels, double threshold) {
    const auto above = [=](int level) { return level > threshold; };
    const auto first = std::find_if(levels.begin(), levels.end(), above);
    const auto last = std::find_if(levels.rbegin(), levels.rend(), above);
    return {static_cast<int>(first - levels.begin()), static_cast<int>(levels.rend() - last) - 1};
}

void widenWhileAbove(Span& span, const Levels& levels, double threshold) {
    const auto frameNum = static_cast<int>(levels.size());
    const auto above = [&](int frame) { return levels[static_cast<std::size_t>(frame)] > threshold; };
    while (span.first >= 1 && above(span.first - 1)) --span.first;
    while (span.last + 1 <= frameNum - 1 && above(span.last + 1)) ++span.last;
}

Levels volumes(const int* wave, int waveLen) {
    auto volume = valuePerFrame<int>(waveLen, frameSize, overlap);
    wave2volume(wave, waveLen, frameSize, overlap, volume.data(), 1);
    return volume;
}

} // namespace

endPointCurve::Curve endPointCurve::ofVolZcr(const int* wave, int waveLen) {
    const Levels volume = volumes(wave, waveLen);
    Curve curve{{volume.begin(), volume.end()}, {}};
    const double maxVol = largestOf(volume);
    if (!volume.empty()) curve.thresholds = {neighbourShare * maxVol, coreShare * maxVol};
    return curve;
}

void cAudioByVolumeAndZcr::epdByVolZcr(const int* wave, int waveLen, int, int* start, int* end) {
    const Levels volume = volumes(wave, waveLen);
    Levels zcr(volume.size());
    cAudioZeroCrossing::wave2zcr(wave, waveLen, frameSize, overlap, zcr.data());

    const double maxVol = largestOf(volume);
    Span span = framesAbove(volume, coreShare * maxVol);
    widenWhileAbove(span, volume, neighbourShare * maxVol);
    widenWhileAbove(span, zcr, 0.4 * largestOf(zcr));
    *start = cAudioFraming::frame2sampleIndex(span.first, frameSize, overlap);
    *end = cAudioFraming::frame2sampleIndex(span.last, frameSize, overlap);
}
