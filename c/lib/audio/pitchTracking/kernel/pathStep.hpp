// One step of the path search from frame to frame, in versions for several instruction sets; all choose the
// same predecessors and give the same values.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

namespace wavepitch::pitchTracking {

/// What a version computes: for each current candidate the best of prevLen predecessors, 1 or more, by
///     value = the predecessor's total + signed penalty, in double, narrowed to float,
/// where the signed penalty is signedWeight * distance in single precision. A predecessor replaces those
/// before it only when its value is strictly better, so the first of equals wins.
struct PathStep {
    const double* prevTotal;
    const double* prevPosition;
    std::size_t prevLen;

    /// Room, and valid values, for len rounded up to a multiple of pathStepBlock.
    const double* position;
    std::size_t len;
    float* best;    ///< receives the best values
    int* prevIndex; ///< receives the predecessors' numbers

    /// Where both frames' positions are runs of consecutive integers: the signed penalties by distance, such
    /// that signedPenalty[j - k] is that of candidate j and predecessor k. Null otherwise.
    const double* signedPenalty;
    /// Then, too: position[0] - prevPosition[0], and whether no value gets better with a greater distance.
    std::ptrdiff_t shift;
    bool nearIsBetter;
    double* bestPrevTotal; ///< room for a value for each prevBlock predecessors

    float signedWeight; ///< the weight of a distance, negated where a high value is better
    bool squared;       ///< the distance is the squared difference of positions, else the absolute one
    bool lowIsBetter;
};

constexpr std::size_t pathStepBlock = 64;
constexpr std::size_t prevBlock = 4;

template <InstructionSet set>
void bestPredecessors(const PathStep& step);

/// The version that the next call uses.
inline auto pathStep() {
    return versionFor(instructionSet(), []<InstructionSet set> { return &bestPredecessors<set>; });
}

} // namespace wavepitch::pitchTracking
