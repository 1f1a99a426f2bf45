#include "audio/waveform/waveform.hpp"
#include "utility/rounding.hpp"

#include <algorithm>

namespace {

int interpolated(const int* wave, int waveLen, double position) {
    if (position >= waveLen - 1) return wave[waveLen - 1];
    if (!(position >= 0.0)) return wave[0];
    const auto k = static_cast<int>(position); // the floor, as the position is not negative
    const double f = position - k;
    return myRound(static_cast<float>(wave[k] * (1.0 - f) + wave[k + 1] * f));
}

} // namespace

void cAudioWaveform::waveResample(const int* wave, int waveLen, int oldFs, int newFs, int* out, int outLen) {
    if (outLen < 1) return;
    if (waveLen < 1) {
        std::fill(out, out + outLen, 0);
        return;
    }
    out[0] = wave[0];
    out[outLen - 1] = wave[waveLen - 1];
    for (int i = 1; i < outLen - 1; ++i)
        out[i] = interpolated(wave, waveLen, static_cast<double>(i) * oldFs / newFs);
}
