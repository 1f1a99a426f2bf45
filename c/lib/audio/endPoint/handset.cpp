// 1. The waveform is rescaled to the range of its bits, as the caller sees it afterwards.
// 2. Volume and zero crossings of each frame, its own mean removed. Those of the first 0.2 s become 0.
// 3. Frames above a share of the largest volume and below a share of the largest count are marked.
// 4. The sound under way at 0.2 s and the first short and double blip lose their marks.
// 5. The span of the marks that are left, or the caller's, becomes samples, with margins.
#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/framing/wholeFrames.hpp"
#include "utility/rounding.hpp"

#include <cmath>
#include <numeric>

namespace {

using wavepitch::endPoint::Voice;
constexpr int frameSize = wavepitch::endPoint::handsetFrames.frameSize;
constexpr int overlap = wavepitch::endPoint::handsetFrames.overlap;
constexpr int step = frameSize - overlap;
constexpr int margin = 512;

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

Marks voicedFrames(const std::vector<Voice>& voices, std::size_t first) {
    const Voice threshold = wavepitch::endPoint::voiceThresholds(voices);
    Marks mark(voices.size());
    for (std::size_t f = first; f < voices.size(); ++f)
        mark[f] = std::isfinite(voices[f].volume) && voices[f].volume > threshold.volume &&
                  voices[f].zcr < threshold.zcr;
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

std::size_t wavepitch::endPoint::firstVoice(int fs) {
    return static_cast<std::size_t>(std::max(0, truncateToInt(std::floor((0.2 * fs - overlap) / step))));
}

std::vector<Voice> wavepitch::endPoint::voicesOf(const double* wave, int waveLen, int fs) {
    auto voices = framing::valuePerFrame<Voice>(waveLen, frameSize, overlap);
    framing::featurePerFrame(wave, waveLen, frameSize, overlap, voices.data(), VoiceOfFrame());
    const std::size_t silent = std::min(voices.size(), std::max(firstVoice(fs), std::size_t{1}) - 1);
    std::fill(voices.begin(), voices.begin() + static_cast<std::ptrdiff_t>(silent), Voice{});
    return voices;
}

Voice wavepitch::endPoint::voiceThresholds(const std::vector<Voice>& voices) {
    Voice largest;
    for (const Voice& voice : voices) {
        if (!std::isfinite(voice.volume)) continue;
        largest.volume = std::max(largest.volume, voice.volume);
        largest.zcr = std::max(largest.zcr, voice.zcr);
    }
    return {0.15 * largest.volume, 0.35 * largest.zcr};
}

void cAudioEndPoint::endPointDetect4quokka(double* wave, int waveLen, int fs, int nbits, double* endPoint) {
    const double scale = std::ldexp(1.0, nbits);
    for (int i = 0; i < waveLen; ++i) wave[i] = scale * wave[i] * 0.5;
    const std::size_t first = wavepitch::endPoint::firstVoice(fs);
    Marks mark = voicedFrames(wavepitch::endPoint::voicesOf(wave, waveLen, fs), first);
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
