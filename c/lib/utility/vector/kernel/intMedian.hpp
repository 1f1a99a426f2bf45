// The median of ints in versions for several instruction sets; all give the same value.
#pragma once

#include "utility/instructionSet.hpp"

namespace wavepitch::utility {

/// vecMedian for int with n of at least 1.
using IntMedian = int (*)(const int* vec, int n);

template <InstructionSet set>
int intMedianOf(const int* vec, int n);

/// The version that the next call uses: for callers that take many medians.
inline IntMedian intMedian() {
    return versionFor(instructionSet(), []<InstructionSet set> { return &intMedianOf<set>; });
}

} // namespace wavepitch::utility
