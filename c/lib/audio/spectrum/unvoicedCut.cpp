// The frame from which the spectrum of a recording changes most, in one pass: the power spectrum of each
// frame, the change from the one two frames before, the largest change of the first half.
#include "audio/failure.hpp"
#include "audio/framing/framing.hpp"
#include "audio/spectrum/frameTransform.hpp"
#include "audio/spectrum/spectrum.hpp"
#include "audio/spectrum/window.hpp"
#include "utility/fatal.hpp"
#include "utility/interruption.hpp"
#include "utility/rounding.hpp"

#include <array>
#include <cmath>
#include <cstdint>

namespace {

constexpr int transformLength = 512;
constexpr std::size_t binNum = transformLength / 2 + 1;

using Powers = std::array<float, binNum>;

class PowerSpectrum {
public:
    explicit PowerSpectrum(int frameSize)
        : window(wavepitch::spectrum::hammingWindow(frameSize)), spectrum(frameSize, transformLength) {}

    void operator()(const int* samples, Powers& power) {
        for (std::size_t j = 0; j < window.size(); ++j) {
            const auto sample = static_cast<double>(static_cast<float>(samples[j]));
            spectrum.frame()[j] = static_cast<float>(window[j] * sample);
        }
        spectrum.transform();
        const float *re = spectrum.real(), *im = spectrum.imag();
        for (std::size_t k = 0; k < binNum; ++k) power[k] = re[k] * re[k] + im[k] * im[k];
    }

private:
    std::vector<double> window;
    wavepitch::spectrum::FrameTransform<float> spectrum;
};

float spectralChange(const Powers& before, const Powers& after) {
    float change = 0.0F;
    for (std::size_t k = 0; k < binNum; ++k) change += std::abs(before[k] - after[k]);
    return change;
}

} // namespace

int cAudioSpectrum::uvCut(const int* wave, int waveLen, int frameSize, int overlap) {
    if (frameSize > transformLength)
        myExitFormatted("Error: frameSize is larger than paddedSize (line %d of file %s)", __LINE__,
                        audioSourcePath);
    const int frameNum = cAudioFraming::getFrameNum2(waveLen, frameSize, overlap);
    const int searched = frameNum < 1 ? 0 : myRound(static_cast<float>((frameNum - 2) * 0.5));
    if (frameSize < 1 || searched < 2) return 0;

    const std::int64_t step = std::int64_t{frameSize} - overlap;
    PowerSpectrum powerSpectrum(frameSize);
    std::array<Powers, 3> recent; // of the frame at hand and the two before it, by number modulo 3
    powerSpectrum(wave, recent[0]);
    powerSpectrum(wave + step, recent[1]);
    float largest = 0.0F;
    int cut = 0;
    wavepitch::utility::LongWork work;
    for (int i = 0; i < searched; ++i) { // the frames beyond the search are not looked at
        work.took(transformLength);
        Powers& after = recent[static_cast<std::size_t>(i + 2) % 3];
        powerSpectrum(wave + (i + std::int64_t{2}) * step, after);
        const float change = spectralChange(recent[static_cast<std::size_t>(i) % 3], after);
        if (i > 0 && !(change > largest)) continue;
        largest = change;
        cut = i;
    }
    return cut;
}
