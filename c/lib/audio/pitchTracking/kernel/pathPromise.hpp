// Which predecessors cannot win, in the path search's step over runs of lags.
//
// Where penalties grow with the distance, a predecessor gives no candidate of a block more than its total
// with the penalty of the nearest one of them. If that is worse than what every candidate of the block is
// sure of from a predecessor that is likely to be good, it is neither the best of any of them nor equal to
// it, and can be left out without a change in the result. Not-a-number never replaces another value and
// promises nothing.
#pragma once

#include "audio/pitchTracking/kernel/pathStep.hpp"

namespace {

using wavepitch::pitchTracking::PathStep;
using wavepitch::pitchTracking::prevBlock;

template <bool lowIsBetter, typename T>
[[gnu::always_inline]] inline bool isBetter(T a, T b) {
    return lowIsBetter ? a < b : a > b;
}

/// What predecessors promise the candidates of a block.
template <bool lowIsBetter>
class Promise {
public:
    explicit Promise(const PathStep& itsStep) : step(itsStep) {
        for (std::size_t k = 0; k < step.prevLen; ++k) {
            double& ofBlock = step.bestPrevTotal[k / prevBlock];
            if (k % prevBlock == 0) ofBlock = worst;
            if (isBetter<lowIsBetter>(step.prevTotal[k], ofBlock)) ofBlock = step.prevTotal[k];
            if (isBetter<lowIsBetter>(step.prevTotal[k], step.prevTotal[bestPrev])) bestPrev = k;
        }
    }

    /// Looks at the candidates from first on, up to end: the worst of them is sure of the value that the
    /// better of two likely predecessors gives it, the one with its own position and the best of all.
    void lookAt(std::size_t first, std::size_t end) {
        from = static_cast<std::ptrdiff_t>(first);
        last = static_cast<std::ptrdiff_t>(end) - 1;
        sure = -static_cast<float>(worst);
        for (std::ptrdiff_t j = from; j <= last; ++j) {
            const std::ptrdiff_t most = static_cast<std::ptrdiff_t>(step.prevLen) - 1;
            const std::ptrdiff_t same = j + step.shift < 0      ? 0
                                        : j + step.shift > most ? most
                                                                : j + step.shift;
            float ofOne = static_cast<float>(worst);
            const float likely[] = {valueOf(same, j), valueOf(static_cast<std::ptrdiff_t>(bestPrev), j)};
            for (const float value : likely)
                if (isBetter<lowIsBetter>(value, ofOne)) ofOne = value;
            if (isBetter<lowIsBetter>(sure, ofOne)) sure = ofOne;
        }
    }

    /// Whether none of prevBlock predecessors from k on can be the best of a candidate looked at.
    bool isHopeless(std::size_t k) const {
        const auto begin = static_cast<std::ptrdiff_t>(k);
        const auto behind =
            static_cast<std::ptrdiff_t>(k + prevBlock < step.prevLen ? k + prevBlock : step.prevLen);
        const std::ptrdiff_t nearest = behind - 1 < from + step.shift ? from - (behind - 1)
                                       : begin > last + step.shift    ? last - begin
                                                                      : -step.shift;
        const double promised = step.bestPrevTotal[k / prevBlock] + step.signedPenalty[nearest];
        return isBetter<lowIsBetter>(sure, static_cast<float>(promised));
    }

private:
    float valueOf(std::ptrdiff_t k, std::ptrdiff_t j) const {
        return static_cast<float>(step.prevTotal[k] + step.signedPenalty[j - k]);
    }

    static constexpr double worst = lowIsBetter ? __builtin_inf() : -__builtin_inf();
    const PathStep& step;
    std::size_t bestPrev = 0;
    std::ptrdiff_t from = 0;
    std::ptrdiff_t last = 0;
    float sure = 0;
};

} // namespace
