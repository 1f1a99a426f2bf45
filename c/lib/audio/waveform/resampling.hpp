// Resampling by linear interpolation, any part of the output by itself.
#pragma once

#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdint>

namespace wavepitch::waveform {

/// A waveform and the rates and length that it is brought to (cAudioWaveform::waveResample).
template <typename Sample>
struct Resampling {
    const Sample* wave;
    int waveLen; ///< 1 or more
    int oldFs;
    int newFs;
    int outLen;

    /// Writes sampleNum samples of the output, from first on.
    void read(std::int64_t first, int sampleNum, int* out) const {
        const std::int64_t end = first + sampleNum;
        for (std::int64_t i = first; i < end; ++i)
            out[i - first] = interpolated(static_cast<double>(i) * oldFs / newFs);
        if (first == 0 && sampleNum > 0) out[0] = wave[0];
        if (end == outLen && sampleNum > 0) out[sampleNum - 1] = wave[waveLen - 1];
    }

private:
    int interpolated(double position) const {
        if (position >= waveLen - 1) return wave[waveLen - 1];
        if (!(position >= 0.0)) return wave[0];
        const auto k = static_cast<int>(position); // the floor, as the position is not negative
        const double f = position - k;
        return myRound(static_cast<float>(wave[k] * (1.0 - f) + wave[k + 1] * f));
    }
};

} // namespace wavepitch::waveform
