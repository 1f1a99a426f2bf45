// The complex fast Fourier transform.
#pragma once

/// The forward transform in place, unscaled: X[k] = sum over t of x[t] * exp(-2 pi i t k / N), in natural
/// order. Split radix with decimation in frequency (Sorensen, Heideman and Burrus, "On computing the
/// split-radix FFT", IEEE Trans. ASSP 34, 1986). For float every step is in single precision. Sines and
/// cosines are computed in the call; nothing is allocated, nothing is kept.
///
/// N is the smallest power of two not below n, and at least 2. When it differs from n, the elements from n to
/// N - 1 of both arrays are set to 0 and "\nuse N point fft" is printed on the host console, without a final
/// newline. With n below 1, N is 2 and both elements are set to 0.
///
/// @tparam T    float or double.
/// @param real  real parts: room for N elements, the first n of them the signal.
/// @param imag  imaginary parts, likewise.
/// @param n     length of the signal.
template <typename T>
void fftComplex(T* real, T* imag, int n);
