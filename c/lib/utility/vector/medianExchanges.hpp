// The selection that the median is defined by, for orders of the values in which carrying out its exchanges
// would take quadratic time. Internal to median.hpp.
#pragma once

#include <vector>

namespace wavepitch::utility::medianSelection {

/// Rank of a value that compares unordered with every other one.
inline constexpr int unordered = 0;

/// Positions in the given order.
struct MiddlePlaces {
    int lower;
    int upper; ///< -1 if the place behind k lies behind the range
};

/// Which of the values come to stand at place k, and smallest behind it in the final range, when the range is
/// partitioned around its first value again and again until a pivot stands at k: byFirstPivot in n log n.
///
/// @param rank  of each value, in their order: equal for values that compare equal, 1 to the number of values
///              for ordered ones, or unordered.
/// @param k     a place in the range.
MiddlePlaces byExchanges(const std::vector<int>& rank, int k);

} // namespace wavepitch::utility::medianSelection
