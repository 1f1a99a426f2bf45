#include "audio/waveform/waveform.hpp"
#include "utility/rounding.hpp"

#include <cstdint>

namespace {

/// @param echo  the echo of an earlier output sample, added to the sample at hand.
template <typename T, typename Echo>
void addEchoes(const T* wave, int waveLen, int fs, double delay, T* out, Echo echo) {
    // Saturating: a delay of ages is one of more than the waveform.
    const int samples = myRound(static_cast<float>(fs * delay));
    const int silent = samples < 1 || samples > waveLen ? waveLen : samples;
    for (int i = 0; i < silent; ++i) out[i] = wave[i];
    for (int i = silent; i < waveLen; ++i) out[i] = echo(out[i - silent], wave[i]);
}

} // namespace

void cAudioWaveform::waveEcho(const double* wave, int waveLen, int fs, double delay, double gain,
                              double* out) {
    addEchoes(wave, waveLen, fs, delay, out,
              [gain](double earlier, double sample) { return earlier * gain + sample; });
}

void cAudioWaveform::waveEcho(const int* wave, int waveLen, int fs, double delay, double gain, int* out) {
    addEchoes(wave, waveLen, fs, delay, out, [gain](int earlier, int sample) {
        return clampToInt(std::int64_t{myRound(static_cast<float>(earlier * gain))} + sample);
    });
}
