// One step of the path search: several current candidates side by side, each in a lane of its own, and the
// predecessors one after the other.
//
// Each lane does what a plain loop does, in its order, so every width gives the same bits. Predecessors that
// cannot win (pathPromise.hpp) are left out.
#include "audio/pitchTracking/kernel/pathPromise.hpp"
#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

using wavepitch::pitchTracking::pathStepBlock;

/// Two registers of doubles as one of floats.
template <std::size_t bytes>
[[gnu::always_inline]] inline Lanes<float, bytes> narrowed(const Lanes<double, bytes>& low,
                                                           const Lanes<double, bytes>& high) {
    using HalfFloats = Lanes<float, bytes / 2>;
    const auto a = __builtin_convertvector(low, HalfFloats);
    const auto b = __builtin_convertvector(high, HalfFloats);
    if constexpr (bytes == 16)
        return __builtin_shufflevector(a, b, 0, 1, 2, 3);
    else if constexpr (bytes == 32)
        return __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7);
    else
        return __builtin_shufflevector(a, b, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
}

/// The signed penalties between predecessor k and the candidates from j on, looked up.
template <std::size_t bytes>
struct TabledPenalty {
    static constexpr std::size_t groups = 4; // of candidates, kept in registers at a time
    const PathStep& step;

    [[gnu::always_inline]] Lanes<double, bytes> operator()(std::size_t k, std::size_t j) const {
        return load<double, bytes>(step.signedPenalty + j - k);
    }
};

/// The same, computed. The differences of int positions and their squares are formed in double.
template <std::size_t bytes, bool squared>
struct ComputedPenalty {
    static constexpr std::size_t groups = 1;
    const PathStep& step;

    [[gnu::always_inline]] Lanes<double, bytes> operator()(std::size_t k, std::size_t j) const {
        const auto difference = load<double, bytes>(step.position + j) - step.prevPosition[k];
        const auto distance = squared ? difference * difference : (difference < 0 ? -difference : difference);
        const auto penalty = __builtin_convertvector(distance, Lanes<float, bytes / 2>) * step.signedWeight;
        return __builtin_convertvector(penalty, Lanes<double, bytes>);
    }
};

/// The best predecessors of the block of candidates that starts at j.
template <std::size_t bytes, bool lowIsBetter, typename Penalty, typename Hopeless>
[[gnu::always_inline]] inline void bestOfBlock(const PathStep& step, const Penalty& penalty, std::size_t j,
                                               const Hopeless& isHopeless) {
    using Floats = Lanes<float, bytes>;
    using Ints = Lanes<int, bytes>;
    constexpr std::size_t half = bytes / sizeof(double);
    constexpr std::size_t groups = Penalty::groups;
    const auto value = [&](std::size_t k, std::size_t group) __attribute__((always_inline)) {
        const std::size_t at = j + group * 2 * half;
        const double total = step.prevTotal[k];
        return narrowed<bytes>(total + penalty(k, at), total + penalty(k, at + half));
    };

    Floats best[groups];
    Ints prevIndex[groups] = {};
    for (std::size_t group = 0; group < groups; ++group) best[group] = value(0, group);
    for (std::size_t first = 0; first < step.prevLen; first += prevBlock) {
        if (first > 0 && isHopeless(first)) continue;
        const std::size_t behind = first + prevBlock < step.prevLen ? first + prevBlock : step.prevLen;
        Ints index = Ints{} + static_cast<int>(first);
        for (std::size_t k = first; k < behind; ++k) {
#pragma GCC unroll 4
            for (std::size_t group = 0; group < groups; ++group) {
                const Floats here = value(k, group);
                const Ints better = lowIsBetter ? here < best[group] : here > best[group];
                best[group] = better ? here : best[group];
                prevIndex[group] = better ? index : prevIndex[group];
            }
            index += 1;
        }
    }
    __builtin_memcpy(step.best + j, best, sizeof best);
    __builtin_memcpy(step.prevIndex + j, prevIndex, sizeof prevIndex);
}

template <std::size_t bytes, bool lowIsBetter, typename Penalty>
void bestOfAll(const PathStep& step, const Penalty& penalty) {
    constexpr std::size_t block = Penalty::groups * bytes / sizeof(float);
    static_assert(pathStepBlock % block == 0);
    if (step.signedPenalty && step.nearIsBetter) {
        Promise<lowIsBetter> promise(step);
        for (std::size_t j = 0; j < step.len; j += block) {
            promise.lookAt(j, j + block < step.len ? j + block : step.len);
            bestOfBlock<bytes, lowIsBetter>(step, penalty, j,
                                            [&](std::size_t k) { return promise.isHopeless(k); });
        }
    } else {
        for (std::size_t j = 0; j < step.len; j += block)
            bestOfBlock<bytes, lowIsBetter>(step, penalty, j, [](std::size_t) { return false; });
    }
}

template <std::size_t bytes, typename Penalty>
void bestOfAll(const PathStep& step, const Penalty& penalty) {
    if (step.lowIsBetter)
        bestOfAll<bytes, true>(step, penalty);
    else
        bestOfAll<bytes, false>(step, penalty);
}

} // namespace

template <wavepitch::InstructionSet set>
void wavepitch::pitchTracking::bestPredecessors(const PathStep& step) {
    if (step.signedPenalty)
        bestOfAll<ownBytes>(step, TabledPenalty<ownBytes>{step});
    else if (step.squared)
        bestOfAll<ownBytes>(step, ComputedPenalty<ownBytes, true>{step});
    else
        bestOfAll<ownBytes>(step, ComputedPenalty<ownBytes, false>{step});
}

template void wavepitch::pitchTracking::bestPredecessors<ownSet>(const PathStep&);
