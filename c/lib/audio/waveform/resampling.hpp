// Resampling by linear interpolation, any part of the output by itself.
#pragma once

#include <algorithm>
#include <climits>

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
    void read(int first, int sampleNum, int* out) const {
        if (sampleNum < 1) return;
        const int last = first + (sampleNum - 1);
        if (isInside(position(first)) && isInside(position(last))) { // and so is all between them
            for (int j = 0; j < sampleNum; ++j) out[j] = interpolated(position(first + j));
        } else {
            for (int j = 0; j < sampleNum; ++j) out[j] = interpolatedOrEnd(position(first + j));
        }
        if (first == 0) out[0] = wave[0];
        if (last == outLen - 1) out[sampleNum - 1] = wave[waveLen - 1];
    }

private:
    double position(int i) const { return static_cast<double>(i) * oldFs / newFs; }

    bool isInside(double position) const { return position >= 0.0 && position < waveLen - 1; }

    int interpolatedOrEnd(double position) const {
        if (isInside(position)) return interpolated(position);
        return position >= waveLen - 1 ? wave[waveLen - 1] : wave[0];
    }

    /// Rounded as myRound does, but inline: half of the time.
    int interpolated(double position) const {
        const auto k = static_cast<int>(position); // the floor, as the position is not negative
        const double f = position - k;
        const auto value = static_cast<double>(static_cast<float>(wave[k] * (1.0 - f) + wave[k + 1] * f));
        const double beyond = value > 0.0 ? value + 0.5 : value - 0.5;
        return static_cast<int>(std::clamp<double>(beyond, INT_MIN, INT_MAX));
    }
};

} // namespace wavepitch::waveform
