#include "audio/waveform/resampling.hpp"
#include "audio/waveform/waveform.hpp"

#include <algorithm>

void cAudioWaveform::waveResample(const int* wave, int waveLen, int oldFs, int newFs, int* out, int outLen) {
    if (outLen < 1) return;
    if (waveLen < 1)
        std::fill(out, out + outLen, 0);
    else
        wavepitch::waveform::Resampling<int>{wave, waveLen, oldFs, newFs, outLen}.read(0, outLen, out);
}
