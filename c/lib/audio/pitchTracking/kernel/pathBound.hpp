// Which predecessors cannot win, in the path search's step between frames of many candidates.
//
// Where costs grow with the distance, a block of predecessors gives no candidate of a group a value above
// this bound: the best total of the block with the cost of the smallest distance between block and group. If
// that is worse than a value that every candidate of the group is guaranteed by a predecessor that is likely
// to be good, the block is neither the best of any of them nor equal to it, and can be left out without a
// change in the result. Not-a-number never replaces another value and guarantees nothing.
#pragma once

#include "audio/pitchTracking/kernel/pathStep.hpp"
#include "utility/kernel/lanes.hpp"

namespace {

using wavepitch::pitchTracking::PathStep;

template <bool lowIsBetter, typename T>
[[gnu::always_inline]] inline auto isBetter(const T& a, const T& b) {
    return lowIsBetter ? a < b : a > b;
}

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

/// The cost of transitions by the difference of positions. Differences of int positions and their squares are
/// formed in double.
template <std::size_t bytes, bool squared>
[[gnu::always_inline]] inline Lanes<double, bytes> costOf(const Lanes<double, bytes>& difference,
                                                          float signedWeight) {
    const auto distance = squared ? difference * difference : (difference < 0 ? -difference : difference);
    const auto cost = __builtin_convertvector(distance, Lanes<float, bytes / 2>) * signedWeight;
    return __builtin_convertvector(cost, Lanes<double, bytes>);
}

template <std::size_t bytes, bool lowIsBetter, bool squared>
class PathBound {
    using Doubles = Lanes<double, bytes>;
    using Floats = Lanes<float, bytes>;
    static constexpr std::size_t half = bytes / sizeof(double);
    static constexpr std::size_t shortestBlock = 4;

public:
    static constexpr std::size_t mostBlocks = 128;

    explicit PathBound(const PathStep& itsStep)
        : step(itsStep), blockLen((step.prev.len + mostBlocks - 1) / mostBlocks) {
        if (blockLen < shortestBlock) blockLen = shortestBlock;
        const double* total = step.prev.total;
        for (std::size_t k = 0; k < step.prev.len; k += blockLen, ++blockNum) {
            const std::size_t end = k + blockLen < step.prev.len ? k + blockLen : step.prev.len;
            double best = worst;
            double low = step.prev.position[k];
            double high = low;
            for (std::size_t i = k; i < end; ++i) {
                const double position = step.prev.position[i];
                best = isBetter<lowIsBetter>(total[i], best) ? total[i] : best;
                low = position < low ? position : low;
                high = position > high ? position : high;
                if (isBetter<lowIsBetter>(total[i], total[bestPrev])) bestPrev = i;
            }
            bestTotal[blockNum] = best;
            lowest[blockNum] = low;
            highest[blockNum] = high;
        }
    }

    /// Marks the blocks that are hopeless for the candidates from first up to behind, whole registers of
    /// them: what the best of three likely predecessors gives is guaranteed, the best one of all, the one
    /// with the candidate's own number, and one that the caller knows to be good for candidates nearby.
    void lookAt(std::size_t first, std::size_t behind, std::size_t nearbyPrev) {
        Floats guaranteed = Floats{} - static_cast<float>(worst);
        Doubles low = load<double, bytes>(step.current.position + first);
        Doubles high = low;
        for (std::size_t j = first; j < behind; j += 2 * half) {
            Floats sure = Floats{} + static_cast<float>(worst);
            sure = better(valuesOf(bestPrev, j), sure);
            sure = better(valuesOf(nearbyPrev, j), sure);
            if (j + 2 * half <= step.prev.len) sure = better(ownValues(j), sure);
            guaranteed = isBetter<lowIsBetter>(guaranteed, sure) ? sure : guaranteed;
            for (std::size_t i = j; i < j + 2 * half; i += half) {
                const auto position = load<double, bytes>(step.current.position + i);
                low = position < low ? position : low;
                high = position > high ? position : high;
            }
        }
        const float least = joined<float, bytes>(
            guaranteed, [](auto a, auto b) { return isBetter<lowIsBetter>(a, b) ? b : a; });
        markAgainst(least, joined<double, bytes>(low, [](auto a, auto b) { return a < b ? a : b; }),
                    joined<double, bytes>(high, [](auto a, auto b) { return a > b ? a : b; }));
    }

    std::size_t blockLength() const { return blockLen; }
    bool isHopeless(std::size_t block) const { return hopeless[block] != 0; }

private:
    /// The better ones; not-a-number in the first is never better.
    [[gnu::always_inline]] static Floats better(const Floats& a, const Floats& b) {
        return isBetter<lowIsBetter>(a, b) ? a : b;
    }

    void markAgainst(float guaranteed, double low, double high) {
        for (std::size_t block = 0; block < blockNum; block += 2 * half) {
            const Floats most = narrowed<bytes>(bound(block, low, high), bound(block + half, low, high));
            const auto marks = isBetter<lowIsBetter>(Floats{} + guaranteed, most);
            __builtin_memcpy(hopeless + block, &marks, sizeof marks);
        }
    }

    [[gnu::always_inline]] Doubles bound(std::size_t block, double low, double high) const {
        const Doubles above = load<double, bytes>(lowest + block) - high;
        const Doubles below = low - load<double, bytes>(highest + block);
        const Doubles apart = above > below ? above : below;
        return load<double, bytes>(bestTotal + block) + cost(apart > 0 ? apart : Doubles{});
    }

    [[gnu::always_inline]] Doubles cost(const Doubles& difference) const {
        return costOf<bytes, squared>(difference, step.transition.signedWeight);
    }

    /// What predecessor k gives the candidates from j on.
    [[gnu::always_inline]] Floats valuesOf(std::size_t k, std::size_t j) const {
        const double* position = step.current.position + j;
        const double from = step.prev.position[k];
        const double total = step.prev.total[k];
        return narrowed<bytes>(total + cost(load<double, bytes>(position) - from),
                               total + cost(load<double, bytes>(position + half) - from));
    }

    /// What each of them is given by the predecessor of its own number.
    [[gnu::always_inline]] Floats ownValues(std::size_t j) const {
        const auto value = [&](std::size_t i) __attribute__((always_inline)) {
            return load<double, bytes>(step.prev.total + i) +
                   cost(load<double, bytes>(step.current.position + i) -
                        load<double, bytes>(step.prev.position + i));
        };
        return narrowed<bytes>(value(j), value(j + half));
    }

    static constexpr double worst = lowIsBetter ? __builtin_inf() : -__builtin_inf();
    const PathStep& step;
    std::size_t blockLen;
    std::size_t blockNum = 0;
    std::size_t bestPrev = 0;
    double bestTotal[mostBlocks] = {};
    double lowest[mostBlocks] = {};
    double highest[mostBlocks] = {};
    int hopeless[mostBlocks];
};

} // namespace
