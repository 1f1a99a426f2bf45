// 1. The waveform is rescaled to the range of its bits, as the caller sees it afterwards.
// 2. Volume and zero crossings of each frame, its own mean removed. Those of the first 0.2 s become 0.
// 3. Frames above a share of the largest volume and below a share of the largest count are marked.
// 4. The sound under way at 0.2 s and the first short and double blip lose their marks.
// 5. The span of the marks that are left, or the caller's, becomes samples, with margins.
#include "audio/endPoint/handset.hpp"

#include "audio/endPoint/curves.hpp"
#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/wholeFrames.hpp"
#include "utility/rounding.hpp"

#include <cmath>
#include <numeric>

namespace {

constexpr int frameSize = endPointCurve::handsetFrames.frameSize;
constexpr int overlap = endPointCurve::handsetFrames.overlap;
constexpr int step = frameSize - overlap;
constexpr int margin = 512;
constexpr double volumeShare = 0.15; // of the largest

struct Voice {
    double volume = 0.0;
    double zcr = 0.0;
};

using Marks = std::vector<char>;

class VoiceOfFrame {
public:
    Voice operator()(const double* frame) const {
        const double mean = std::accumulate(frame, frame + frameSize, 0.0) / frameSize;
        double centred[frameSize];
        Voice voice;
        for (int i = 0; i < frameSize; ++i) {
            centred[i] = frame[i] - mean;
            voice.volume += std::fabs(centred[i]);
        }
        voice.zcr = crossings(centred, frameSize);
        return voice;
    }

private:
    decltype(wavepitch::endPoint::FrameKernel::crossingsOfDoubles) crossings =
        wavepitch::endPoint::frameKernel().crossingsOfDoubles;
};

/// The first frame that may be marked. The one before it still counts for the thresholds.
std::size_t firstFrame(int fs) {
    return static_cast<std::size_t>(std::max(0, truncateToInt(std::floor((0.2 * fs - overlap) / step))));
}

std::vector<Voice> voicesOf(const double* wave, int waveLen, int fs) {
    auto voices = valuePerFrame<Voice>(waveLen, frameSize, overlap);
    featurePerFrame(wave, waveLen, frameSize, overlap, voices.data(), VoiceOfFrame());
    const std::size_t silent = std::min(voices.size(), std::max(firstFrame(fs), std::size_t{1}) - 1);
    std::fill(voices.begin(), voices.begin() + static_cast<std::ptrdiff_t>(silent), Voice{});
    return voices;
}

/// Volumes that are not a number are passed over.
Voice largestOf(const std::vector<Voice>& voices) {
    Voice largest;
    for (const Voice& voice : voices) {
        if (!std::isfinite(voice.volume)) continue;
        largest.volume = std::max(largest.volume, voice.volume);
        largest.zcr = std::max(largest.zcr, voice.zcr);
    }
    return largest;
}

Marks voicedFrames(const std::vector<Voice>& voices, std::size_t first) {
    const Voice largest = largestOf(voices);
    Marks mark(voices.size());
    for (std::size_t f = first; f < voices.size(); ++f)
        mark[f] = std::isfinite(voices[f].volume) && voices[f].volume > volumeShare * largest.volume &&
                  voices[f].zcr < 0.35 * largest.zcr;
    return mark;
}

void unmarkSoundUnderWay(Marks& mark, std::size_t first) {
    for (std::size_t f = first; f < mark.size() && mark[f]; ++f) mark[f] = 0;
}

/// A blip is a run of exactly length marks.
void unmarkFirstBlip(Marks& mark, std::size_t first, int patternEnd, std::size_t length) {
    for (std::size_t j = first; static_cast<std::int64_t>(j) < patternEnd && j + length + 1 < mark.size();
         ++j) {
        const auto blip = mark.begin() + static_cast<std::ptrdiff_t>(j + 1);
        const auto after = blip + static_cast<std::ptrdiff_t>(length);
        if (mark[j] || *after || std::find(blip, after, 0) != after) continue;
        std::fill(blip, after, 0);
        return;
    }
}

} // namespace

endPointCurve::Curve endPointCurve::ofHandset(const double* wave, int waveLen, int fs) {
    Curve curve;
    const std::vector<Voice> voices = voicesOf(wave, waveLen, fs);
    for (const Voice& voice : voices) curve.values.push_back(voice.volume);
    if (voices.size() > firstFrame(fs)) curve.thresholds = {volumeShare * largestOf(voices).volume};
    return curve;
}

void cAudioHandset::endPointDetect4quokka(double* wave, int waveLen, int fs, int nbits, double* endPoint) {
    const double scale = std::ldexp(1.0, nbits);
    for (int i = 0; i < waveLen; ++i) wave[i] = scale * wave[i] * 0.5;
    const std::size_t first = firstFrame(fs);
    Marks mark = voicedFrames(voicesOf(wave, waveLen, fs), first);
    unmarkSoundUnderWay(mark, first);
    unmarkFirstBlip(mark, first, fs / step, 1);
    unmarkFirstBlip(mark, first, fs / step, 2);

    const auto firstMark = std::find(mark.begin(), mark.end(), 1);
    if (firstMark != mark.end()) {
        endPoint[0] = static_cast<double>(firstMark - mark.begin());
        endPoint[1] = static_cast<double>(mark.rend() - std::find(mark.rbegin(), mark.rend(), 1) - 1);
    }
    endPoint[0] = std::max(0.0, step * endPoint[0] + step - margin);
    endPoint[1] = std::min(waveLen - 1.0, step * endPoint[1] + step + margin);
}
