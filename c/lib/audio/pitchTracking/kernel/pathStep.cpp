// One step of the path search: several current candidates side by side, each in a lane of its own, and the
// predecessors one after the other.
//
// Each lane does what a plain loop does, in its order, so every width gives the same bits. Between frames of
// many candidates, predecessors that cannot win (pathBound.hpp) are left out.
#include "audio/pitchTracking/kernel/pathBound.hpp"
#include "utility/kernel/version.hpp"

namespace {

using wavepitch::pitchTracking::pathStepBlock;

/// The costs between predecessor k and the candidates from j on, looked up.
template <std::size_t bytes>
struct TabledCost {
    static constexpr std::size_t groups = 4; // registers of candidates that are searched at a time
    const PathStep& step;

    [[gnu::always_inline]] Lanes<double, bytes> operator()(std::size_t k, std::size_t j) const {
        return load<double, bytes>(step.cost + j - k);
    }
};

/// The same, computed.
template <std::size_t bytes, bool squared>
struct ComputedCost {
    static constexpr std::size_t groups = 2;
    const PathStep& step;

    [[gnu::always_inline]] Lanes<double, bytes> operator()(std::size_t k, std::size_t j) const {
        return costOf<bytes, squared>(load<double, bytes>(step.current.position + j) - step.prev.position[k],
                                      step.transition.signedWeight);
    }
};

/// The best predecessors of some registers of candidates, from j on.
template <std::size_t bytes, bool lowIsBetter, typename Cost>
class Search {
    using Floats = Lanes<float, bytes>;
    using Ints = Lanes<int, bytes>;
    static constexpr std::size_t half = bytes / sizeof(double);
    static constexpr std::size_t groups = Cost::groups;

public:
    static constexpr std::size_t width = groups * 2 * half;
    static_assert(pathStepBlock % width == 0);

    [[gnu::always_inline]] Search(const PathStep& itsStep, std::size_t from)
        : step(itsStep), cost{itsStep}, j(from) {
        for (std::size_t group = 0; group < groups; ++group) best[group] = value(0, group);
    }

    /// Predecessors from first up to behind, which follow those tried before.
    [[gnu::always_inline]] void tryThese(std::size_t first, std::size_t behind) {
        Ints index = Ints{} + static_cast<int>(first);
        for (std::size_t k = first; k < behind; ++k) {
#pragma GCC unroll 4
            for (std::size_t group = 0; group < groups; ++group) {
                const Floats here = value(k, group);
                const Ints better = isBetter<lowIsBetter>(here, best[group]);
                best[group] = better ? here : best[group];
                prevIndex[group] = better ? index : prevIndex[group];
            }
            index += 1;
        }
    }

    [[gnu::always_inline]] void write(float* bestOut, int* prevIndexOut) const {
        __builtin_memcpy(bestOut + j, best, sizeof best);
        __builtin_memcpy(prevIndexOut + j, prevIndex, sizeof prevIndex);
    }

private:
    [[gnu::always_inline]] Floats value(std::size_t k, std::size_t group) const {
        const std::size_t at = j + group * 2 * half;
        const double total = step.prev.total[k];
        return narrowed<bytes>(total + cost(k, at), total + cost(k, at + half));
    }

    const PathStep& step;
    Cost cost;
    std::size_t j;
    Floats best[groups];
    Ints prevIndex[groups] = {};
};

template <bool lowIsBetter, bool squared, typename Cost>
void searchWithBound(const PathStep& step, float* best, int* prevIndex) {
    using OwnSearch = Search<ownBytes, lowIsBetter, Cost>;
    PathBound<ownBytes, lowIsBetter, squared> bound(step);
    const std::size_t blockLen = bound.blockLength();
    for (std::size_t j = 0; j < step.current.len; j += OwnSearch::width) {
        bound.lookAt(j, j + OwnSearch::width, j == 0 ? 0 : static_cast<std::size_t>(prevIndex[j - 1]));
        OwnSearch search(step, j);
        for (std::size_t k = 0, block = 0; k < step.prev.len; k += blockLen, ++block) {
            if (block > 0 && bound.isHopeless(block)) continue;
            search.tryThese(k, k + blockLen < step.prev.len ? k + blockLen : step.prev.len);
        }
        search.write(best, prevIndex);
    }
}

template <bool lowIsBetter, bool squared, typename Cost>
void search(const PathStep& step, float* best, int* prevIndex) {
    constexpr std::size_t worthABound = 64;
    const float weight = step.transition.signedWeight;
    const bool nearIsBetter = lowIsBetter ? weight >= 0.0F : weight <= 0.0F;
    if (nearIsBetter && step.prev.len >= worthABound) {
        searchWithBound<lowIsBetter, squared, Cost>(step, best, prevIndex);
        return;
    }
    using OwnSearch = Search<ownBytes, lowIsBetter, Cost>;
    for (std::size_t j = 0; j < step.current.len; j += OwnSearch::width) {
        OwnSearch whole(step, j);
        whole.tryThese(1, step.prev.len);
        whole.write(best, prevIndex);
    }
}

template <bool lowIsBetter, bool squared>
void search(const PathStep& step, float* best, int* prevIndex) {
    if (step.cost)
        search<lowIsBetter, squared, TabledCost<ownBytes>>(step, best, prevIndex);
    else
        search<lowIsBetter, squared, ComputedCost<ownBytes, squared>>(step, best, prevIndex);
}

} // namespace

template <wavepitch::InstructionSet set>
void wavepitch::pitchTracking::bestPredecessors(const PathStep& step, float* best, int* prevIndex) {
    const Transition& transition = step.transition;
    if (transition.lowIsBetter && transition.squared)
        search<true, true>(step, best, prevIndex);
    else if (transition.lowIsBetter)
        search<true, false>(step, best, prevIndex);
    else if (transition.squared)
        search<false, true>(step, best, prevIndex);
    else
        search<false, false>(step, best, prevIndex);
}

template void wavepitch::pitchTracking::bestPredecessors<ownSet>(const PathStep&, float*, int*);
