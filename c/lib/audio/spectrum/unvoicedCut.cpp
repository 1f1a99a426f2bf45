// The frame from which the spectrum of a recording changes most, in three stages: the power spectrum of each
// frame, the change between frames two apart, the largest change of the first half.
#include "audio/failure.hpp"
#include "audio/framing/framing.hpp"
#include "audio/matrix.hpp"
#include "audio/spectrum/kernel/frameTransform.hpp"
#include "audio/spectrum/kernel/window.hpp"
#include "audio/spectrum/spectrum.hpp"
#include "utility/fatal.hpp"
#include "utility/matrix/matrix.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>

namespace {

constexpr int transformLength = 512;
constexpr int binNum = transformLength / 2 + 1;

struct MatrixRelease {
    int rowNum;
    void operator()(void** matrix) const { matFree(matrix, rowNum); }
};
using Matrix = std::unique_ptr<void*[], MatrixRelease>;

/// One row of powers for each of the first frameNum frames.
Matrix powerSpectra(const int* wave, int frameNum, int frameSize, std::int64_t step) {
    Matrix power(cAudioMatrix::matCreate(frameNum, binNum, sizeof(float)), MatrixRelease{frameNum});
    const std::vector<double> window = hammingWindow(frameSize);
    FrameTransform<float> spectrum(frameSize, transformLength);
    for (int i = 0; i < frameNum; ++i) {
        const int* samples = wave + i * step;
        for (int j = 0; j < frameSize; ++j) {
            const auto sample = static_cast<double>(static_cast<float>(samples[j]));
            spectrum.frame()[j] = static_cast<float>(window[static_cast<std::size_t>(j)] * sample);
        }
        spectrum.transform();
        const float *re = spectrum.real(), *im = spectrum.imag();
        auto* row = static_cast<float*>(power[static_cast<std::size_t>(i)]);
        for (int k = 0; k < binNum; ++k) row[k] = re[k] * re[k] + im[k] * im[k];
    }
    return power;
}

float spectralChange(const void* before, const void* after) {
    const auto* a = static_cast<const float*>(before);
    const auto* b = static_cast<const float*>(after);
    float change = 0.0F;
    for (int k = 0; k < binNum; ++k) change += std::abs(a[k] - b[k]);
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

    // The frames beyond the search are not looked at, so that they are not transformed either.
    const Matrix power = powerSpectra(wave, searched + 2, frameSize, std::int64_t{frameSize} - overlap);
    std::vector<float> change;
    for (std::size_t i = 0; i < static_cast<std::size_t>(searched); ++i)
        change.push_back(spectralChange(power[i], power[i + 2]));
    return static_cast<int>(std::max_element(change.begin(), change.end()) - change.begin());
}
