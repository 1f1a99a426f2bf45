// 1. The mean is taken off the waveform; each frame's energy in dB is measured.
// 2. Cores: runs of frames within 20 dB of the loudest.
// 3. Short cores go.
// 4. Cores widen over frames within 30 dB; of those that then coincide, one stays.
// 5. Frames become samples.
#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "audio/framing/wholeFrames.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>

#include "mex.h"

namespace {

constexpr int frameSize = wavepitch::endPoint::characterFrames.frameSize;
constexpr int overlap = wavepitch::endPoint::characterFrames.overlap;
constexpr int step = frameSize - overlap;
constexpr double emptySlot = -1.0;

using Decibels = std::vector<double>;

/// A character's first and last frame, and in the end its first and last sample.
struct Span {
    int first;
    int last;
    bool operator==(const Span&) const = default;
};

/// @return  whether the mean is a number that can be taken off.
bool removeMean(double* wave, int waveLen) {
    if (waveLen < 1) return false;
    const double mean = std::accumulate(wave, wave + waveLen, 0.0) / waveLen;
    if (!std::isfinite(mean)) return false;
    for (int i = 0; i < waveLen; ++i) wave[i] -= mean;
    return true;
}

double decibelsOf(const double* frame) {
    double sum = 0.0;
    for (int i = 0; i < frameSize; ++i) sum += frame[i] * frame[i];
    const double meanSquare = sum / frameSize;
    return meanSquare == 0.0 ? -2147483647.0 : 10.0 * std::log10(meanSquare);
}

/// The first maxNum runs of frames that reach the threshold.
std::vector<Span> coresOf(const Decibels& level, double threshold, int maxNum) {
    std::vector<int> core(level.size());
    std::transform(level.begin(), level.end(), core.begin(), [=](double dB) { return dB >= threshold; });
    int coreNum = 0;
    const SegmentArray segments(segmentFind(core.data(), static_cast<int>(core.size()), &coreNum));
    if (coreNum > maxNum) mexPrintf("Warning: some characters are not recorded due to limited length!\n");
    std::vector<Span> cores;
    std::transform(segments.get(), segments.get() + std::min(coreNum, maxNum), std::back_inserter(cores),
                   [](const SEGMENT& s) {
                       return Span{s.begin, s.end};
                   });
    return cores;
}

void widen(const Decibels& level, double threshold, std::vector<Span>& spans) {
    const auto above = [&](int frame) { return level[static_cast<std::size_t>(frame)] > threshold; };
    const auto frameNum = static_cast<int>(level.size());
    const Span* before = nullptr;
    for (Span& span : spans) {
        if (before && before->last >= span.first) { // the one before has walked through this one
            span = *before;
        } else {
            while (span.first >= 1 && above(span.first - 1)) --span.first;
            while (span.last + 1 <= frameNum - 1 && above(span.last + 1)) ++span.last;
        }
        before = &span;
    }
}

/// The characters in samples; takes the mean off the waveform.
std::vector<Span> charactersOf(double* wave, int waveLen, int fs, int maxNum) {
    if (!removeMean(wave, waveLen)) return {};
    const Decibels level = wavepitch::endPoint::decibels(wave, waveLen);
    if (level.empty()) return {};
    const auto threshold = wavepitch::endPoint::decibelThresholds(level);

    std::vector<Span> spans = coresOf(level, threshold.high, maxNum);
    const int shortest = fs / 1600; // in frames
    std::erase_if(spans, [=](const Span& span) { return span.last - span.first < shortest; });
    widen(level, threshold.low, spans);
    spans.erase(std::unique(spans.begin(), spans.end()), spans.end());
    for (Span& span : spans) span = {step * span.first, step * span.last + (frameSize - 1)};
    return spans;
}

} // namespace

Decibels wavepitch::endPoint::decibels(const double* wave, int waveLen) {
    auto level = framing::valuePerFrame<double>(waveLen, frameSize, overlap);
    framing::featurePerFrame(wave, waveLen, frameSize, overlap, level.data(), decibelsOf);
    return level;
}

wavepitch::endPoint::Thresholds wavepitch::endPoint::decibelThresholds(const Decibels& level) {
    const double loudest = *std::max_element(level.begin(), level.end());
    return {loudest - 30.0, loudest - 20.0};
}

void packCharIndex(double* list, int n) {
    if (n < 1) return;
    std::fill(std::remove(list, list + n, emptySlot), list + n, emptySlot);
}

void cAudioEndPoint::packCharIndex(double* list, int n) {
    ::packCharIndex(list, n);
}

int cAudioEndPoint::charEndPointDetect(double* wave, int waveLen, int fs, double* start, double* end,
                                       int maxNum) {
    const int slots = std::max(maxNum, 0);
    const std::vector<Span> characters = charactersOf(wave, waveLen, fs, slots);
    std::fill(start, start + slots, emptySlot);
    std::fill(end, end + slots, emptySlot);
    for (const Span& character : characters) {
        *start++ = character.first;
        *end++ = character.last;
    }
    return static_cast<int>(characters.size());
}

void cAudioEndPoint::sentenceEndPointDetect(double* wave, int waveLen, int fs, int* start, int* end) {
    const std::vector<Span> characters = charactersOf(wave, waveLen, fs, 100);
    *start = characters.empty() ? -1 : characters.front().first;
    *end = characters.empty() ? -1 : characters.back().last;
}
