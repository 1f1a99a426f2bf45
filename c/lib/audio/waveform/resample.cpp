#include "audio/waveform/resampling.hpp"
#include "audio/waveform/waveform.hpp"
#include "utility/interruption.hpp"

#include <algorithm>

void cAudioWaveform::waveResample(const int* wave, int waveLen, int oldFs, int newFs, int* out, int outLen) {
    if (outLen < 1) return;
    if (waveLen < 1) {
        std::fill(out, out + outLen, 0);
        return;
    }
    constexpr int atATime = 1 << 20;
    const wavepitch::waveform::Resampling<int> resampling{wave, waveLen, oldFs, newFs, outLen};
    for (int done = 0; done < outLen;) {
        const int some = std::min(atATime, outLen - done);
        resampling.read(done, some, out + done);
        done += some;
        wavepitch::utility::askForInterruption();
    }
}
