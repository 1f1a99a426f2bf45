// Small work: a few lags side by side, straight from the frame, one term of each after the other.
#pragma once

#include "audio/pitchFunction/kernel/terms.hpp"

namespace {

constexpr size_t straightLags = 2 * lanes; // up to here the other ways, which do whole blocks, are slower

/// The sums of the lags from first on.
template <typename Kind, typename Sample>
void sumStraightFrom(const Kind& kind, const Task& task, const Sample* x, size_t first, double* pf) {
    for (size_t lag = first; lag < task.lags; lag += lanes) {
        Doubles sum = {};
        const size_t common = task.lags - lag > 1 ? termsAt(task, lag + lanes - 1) : 0;
        for (size_t j = 0; j < common; ++j)
            sum += kind.term(broadcast(static_cast<double>(x[j])), loadDoubles(x + j + lag));
        for (size_t i = lag; i < lag + lanes && i < task.lags; ++i) {
            double value = sum[i - lag];
            for (size_t j = common; j < termsAt(task, i); ++j)
                value += kind.term(static_cast<double>(x[j]), static_cast<double>(x[j + i]));
            pf[i] = value;
        }
    }
}

/// The pitch function of a frame.
template <typename Kind, typename Sample>
void sumStraight(const Task& task, const Sample* x, double* pf) {
    sumStraightFrom(Kind{}, task, x, 0, pf);
    average(task, pf);
}

} // namespace
