// Transformations of a waveform in the time domain: filter, echo, resampling. Lengths are in samples, rates
// in samples per second; a length below 1 means that there is nothing to do. What an operation
// allocates does not grow with the recording: nothing, or what filter says.
#pragma once

class cAudioWaveform {
public:
    /// Linear filter in direct form, in place: y[n] = sum of b[k] * x[n - k] for k >= 0, minus the sum
    /// of a[k] * y[n - k] for k >= 1, each summed from the smallest k upwards, with zero initial state.
    ///
    /// @param b  bLen numerator coefficients; with none, the output is 0.
    /// @param a  aLen denominator coefficients; a[0] is never read and stands for 1.
    /// @param x  xLen samples of any scale, replaced by the output.
    /// Allocates bLen + 1024 samples at most.
    static void filter(const double* b, int bLen, const double* a, int aLen, double* x, int xLen);

    /// A recursive echo: out[i] = wave[i] + gain * out[i - d], so that every echo is echoed again. The delay
    /// of d samples is fs * delay, formed in double, narrowed to float and rounded. A d below 1, a delay of
    /// not-a-number, or one of the whole waveform and more gives no echo: the output is the input.
    ///
    /// @param wave   waveLen samples of any scale.
    /// @param fs     sample rate.
    /// @param delay  in seconds.
    /// @param gain   factor from echo to echo; beyond 1 in magnitude the echoes grow.
    /// @param out    receives waveLen samples.
    /// For int samples, each echo is formed in double, narrowed to float and rounded; sums saturate at the
    /// ends of the range of int.
    static void waveEcho(const double* wave, int waveLen, int fs, double delay, double gain, double* out);
    static void waveEcho(const int* wave, int waveLen, int fs, double delay, double gain, int* out);

    /// Resampling by linear interpolation: output sample i lies at input position i * oldFs / newFs. The
    /// first and the last output sample are the first and the last of the input, whatever the ratio (a single
    /// output sample is the last one). Interpolated values are narrowed to float and rounded.
    ///
    /// @param wave    waveLen samples of any scale. An empty waveform resamples to zeros.
    /// @param oldFs   sample rate of the input.
    /// @param newFs   sample rate of the output; (waveLen - 1) * newFs / oldFs + 1 samples cover the input.
    /// @param out     receives outLen samples. Positions that reach the last input sample repeat it;
    ///                positions before the first one, which only a negative rate gives, and undefined ones
    ///                (both rates 0) repeat the first.
    static void waveResample(const int* wave, int waveLen, int oldFs, int newFs, int* out, int outLen);
};
