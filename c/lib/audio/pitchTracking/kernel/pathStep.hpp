// One step of the path search from frame to frame, in versions for several instruction sets; all choose the
// same predecessors and give the same values.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

namespace wavepitch::pitchTracking {

/// The candidates of a frame, 1 or more. Both arrays have room for len rounded up to a multiple of
/// pathStepBlock; behind len they repeat the last candidate.
struct PathColumn {
    const double* total;    ///< what the best path to each candidate scores
    const double* position; ///< where it stands on the scale that distances are measured on: whole numbers
    std::size_t len;
};

/// What a transition costs: signedWeight * distance, in single precision.
struct Transition {
    float signedWeight; ///< negated where a high value is better, so that the cost is always added
    bool squared;       ///< the distance is the squared difference of positions, else the absolute one
    bool lowIsBetter;
};

/// What a version computes: for each current candidate the best of the predecessors, by
///     value = the predecessor's total + the transition's cost, in double, narrowed to float.
/// A predecessor replaces those before it only when its value is strictly better, so the first of equals
/// wins.
struct PathStep {
    PathColumn prev;
    PathColumn current; ///< its totals are not looked at
    Transition transition;

    /// Where both frames' positions are consecutive integers: costs by distance, such that cost[j - k] is
    /// that of candidate j and predecessor k. Null otherwise.
    const double* cost;
};

constexpr std::size_t pathStepBlock = 64;

/// @param best       receives the best values; room as for the current column.
/// @param prevIndex  receives the predecessors' numbers; the same room.
template <InstructionSet set>
void bestPredecessors(const PathStep& step, float* best, int* prevIndex);

/// The version that the next call uses.
inline auto pathStep() {
    return versionFor(instructionSet(), []<InstructionSet set> { return &bestPredecessors<set>; });
}

} // namespace wavepitch::pitchTracking
