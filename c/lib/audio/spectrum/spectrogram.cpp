#include "audio/failure.hpp"
#include "audio/framing/framing.hpp"
#include "audio/spectrum/frameTransform.hpp"
#include "audio/spectrum/spectrum.hpp"
#include "audio/spectrum/window.hpp"
#include "utility/fatal.hpp"
#include "utility/interruption.hpp"

#include <cmath>
#include <cstdint>

namespace {

using wavepitch::spectrum::FrameTransform;

/// The window of a frame; without one, ones, which leave every sample as it is.
std::vector<double> frameWindow(int frameSize, bool useHamming) {
    return useHamming ? wavepitch::spectrum::hammingWindow(frameSize)
                      : std::vector<double>(static_cast<std::size_t>(frameSize), 1.0);
}

/// The magnitudes of the first binNum bins, formed in double.
template <typename T>
void magnitudes(const FrameTransform<T>& spectrum, int binNum, double* out) {
    for (int k = 0; k < binNum; ++k) {
        const double re = static_cast<double>(spectrum.real()[k]);
        const double im = static_cast<double>(spectrum.imag()[k]);
        out[k] = std::sqrt(re * re + im * im);
    }
}

} // namespace

void cAudioSpectrum::absSpectrogram(const double* wave, int waveLen, int frameSize, int overlap,
                                    int paddedSize, int useHamming, double* out) {
    if (frameSize > paddedSize)
        myExitFormatted("Error: frameSize is larger than paddedSize (line %d of file %s)", __LINE__,
                        audioSourcePath);
    const int frameNum = cAudioFraming::getFrameNum2(waveLen, frameSize, overlap);
    if (frameSize < 1 || frameNum < 1) return;

    const std::int64_t step = std::int64_t{frameSize} - overlap;
    const int binNum = paddedSize / 2 + 1;
    const std::vector<double> window = frameWindow(frameSize, useHamming != 0);
    FrameTransform<double> spectrum(frameSize, paddedSize);
    wavepitch::utility::LongWork work;
    for (int i = 0; i < frameNum; ++i) {
        work.took(static_cast<std::size_t>(paddedSize));
        const double* samples = wave + i * step;
        double* frame = spectrum.frame();
        for (int j = 0; j < frameSize; ++j) frame[j] = samples[j] * window[static_cast<std::size_t>(j)];
        spectrum.transform();
        magnitudes(spectrum, binNum, out + std::int64_t{i} * binNum);
    }
}

void cAudioSpectrum::absFft4frameMat(const double* frameMat, int frameSize, int frameNum, int useHamming,
                                     double* out) {
    if (frameSize < 1 || frameNum < 1) return;
    const std::vector<double> wide = frameWindow(frameSize, useHamming != 0);
    std::vector<float> window;
    window.reserve(wide.size());
    for (const double value : wide) window.push_back(static_cast<float>(value));
    FrameTransform<float> spectrum(frameSize, frameSize);
    wavepitch::utility::LongWork work;
    for (int i = 0; i < frameNum; ++i) {
        work.took(static_cast<std::size_t>(frameSize));
        const std::int64_t first = std::int64_t{i} * frameSize;
        float* frame = spectrum.frame();
        for (int j = 0; j < frameSize; ++j)
            frame[j] = static_cast<float>(frameMat[first + j]) * window[static_cast<std::size_t>(j)];
        spectrum.transform();
        magnitudes(spectrum, frameSize, out + first);
    }
}
