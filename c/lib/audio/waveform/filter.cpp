#include "audio/waveform/waveform.hpp"
#include "utility/interruption.hpp"

#include <algorithm>
#include <vector>

namespace {

constexpr int chunkLen = 1024; // samples filtered at a time: they stay in the first-level cache

/// Samples between two questions to the host, which take time where each needs many terms.
int chunkLenFor(int aLen) {
    return aLen < chunkLen ? chunkLen : 16;
}

/// y[n] for n from begin to end - 1, coefficient by coefficient: neighbouring outputs are independent, and
/// each of them still sums in the order of k.
///
/// @param x  the input, of which sample begin stands at place past.
void feedForward(const double* b, int bLen, const double* x, int past, int begin, int end, double* y) {
    std::fill(y + begin, y + end, 0.0);
    for (int k = 0; k < std::min(bLen, end); ++k)
        for (int n = std::max(begin, k); n < end; ++n) y[n] += b[k] * x[past + (n - begin) - k];
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
    // Outputs take the place of inputs, of which the last ones are kept in front of those of the chunk.
    const int most = std::min(std::max(bLen, 1), xLen) - 1;
    std::vector<double> inputs(static_cast<std::size_t>(most) + chunkLen);
    int past = 0;
    for (int begin = 0, end = 0; begin < xLen; begin = end) {
        end = begin + std::min(chunkLenFor(aLen), xLen - begin);
        const auto last = std::copy(x + begin, x + end, inputs.begin() + past);
        wavepitch::utility::askForInterruption();
        feedForward(b, bLen, inputs.data(), past, begin, end, x);
        feedBack(a, aLen, begin, end, x);
        const int kept = std::min(most, end);
        std::copy(last - kept, last, inputs.begin());
        past = kept;
    }
}
