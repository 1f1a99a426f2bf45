#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "audio/framing/framing.hpp"

#include <algorithm>

namespace {

using wavepitch::endPoint::Levels;
constexpr int frameSize = wavepitch::endPoint::volumeAndZcrFrames.frameSize;
constexpr int overlap = wavepitch::endPoint::volumeAndZcrFrames.overlap;

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

} // namespace

wavepitch::endPoint::Thresholds wavepitch::endPoint::volumeAndZcrThresholds(const Levels& volume) {
    const double maxVol = largestOf(volume);
    return {0.0625 * maxVol, 0.125 * maxVol};
}

void cAudioEndPoint::epdByVolZcr(const int* wave, int waveLen, int, int* start, int* end) {
    const Levels volume = wavepitch::endPoint::frameVolumes(wave, waveLen, {frameSize, overlap});
    Levels zcr(volume.size());
    wave2zcr(wave, waveLen, frameSize, overlap, zcr.data());

    const auto threshold = wavepitch::endPoint::volumeAndZcrThresholds(volume);
    Span span = framesAbove(volume, threshold.high);
    widenWhileAbove(span, volume, threshold.low);
    widenWhileAbove(span, zcr, 0.4 * largestOf(zcr));
    *start = cAudioFraming::frame2sampleIndex(span.first, frameSize, overlap);
    *end = cAudioFraming::frame2sampleIndex(span.last, frameSize, overlap);
}
