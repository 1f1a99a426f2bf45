#include "audio/waveform/waveform.hpp"

#include <algorithm>
#include <vector>

namespace {

constexpr int chunkLen = 1024; // samples filtered at a time: they stay in the first-level cache

/// y[n] for n from begin to end - 1, coefficient by coefficient: neighbouring outputs are independent, and
/// each of them still sums in the order of k.
void feedForward(const double* b, int bLen, const double* x, int begin, int end, double* y) {
    for (int k = 0; k < std::min(bLen, end); ++k)
        for (int n = std::max(begin, k); n < end; ++n) y[n] += b[k] * x[n - k];
}

void feedBack(const double* a, int aLen, int begin, int end, double* y) {
    for (int n = begin; n < end; ++n) {
        double sum = 0.0;
        for (int k = 1; k < aLen && k <= n; ++k) sum += a[k] * y[n - k];
        y[n] -= sum;
    }
}

} // namespace

void cAudioWaveform::filter(const double* b, int bLen, const double* a, int aLen, double* x, int xLen) {
    if (xLen < 1) return;
    std::vector<double> y(static_cast<std::size_t>(xLen));
    for (int begin = 0, end = 0; begin < xLen; begin = end) {
        end = begin + std::min(chunkLen, xLen - begin);
        feedForward(b, bLen, x, begin, end, y.data());
        feedBack(a, aLen, begin, end, y.data());
    }
    std::copy(y.begin(), y.end(), x);
}
