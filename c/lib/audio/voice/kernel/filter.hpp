// Outputs of a symmetric filter, side by side.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

namespace wavepitch::voice {

/// Outputs come in whole blocks.
inline constexpr std::size_t filterBlock = 64;

struct Filtering {
    const float* const* phases; ///< sample p + i * step of the input is phases[p][i]
    std::size_t step;           ///< samples from output to output
    const float* taps;          ///< the centre and the reach taps of one side, nearest first
    std::size_t reach;          ///< the centre of the first output is sample reach
    std::size_t num;            ///< of outputs, a multiple of filterBlock
    float* out;
};

/// Each output is the sum of its terms in single precision, in this order: the centre, then for each tap from
/// the nearest on the tap times the sum of the earlier and the later neighbour.
template <InstructionSet set>
void filterOf(const Filtering& filtering);

/// The version that the next call uses.
inline void (*filterKernel())(const Filtering&) {
    return versionFor(instructionSet(), []<InstructionSet set> { return filterOf<set>; });
}

} // namespace wavepitch::voice
