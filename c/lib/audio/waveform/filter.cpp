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

/// Each output waits for the one before it, which is at hand without a detour through memory.
void feedBack(const double* a, int aLen, int begin, int end, double* y) {
    if (aLen < 2) return;
    const int first = std::max(begin, 1); // the first sample has nothing to feed back
    double previous = y[first - 1];
    for (int n = first; n < end; ++n) {
        const int terms = std::min(aLen, n + 1);
        double sum = a[1] * previous;
        for (int k = 2; k < terms; ++k) sum += a[k] * y[n - k];
        previous = y[n] - sum;
        y[n] = previous;
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
