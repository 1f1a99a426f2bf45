// A lower bound for the distance of a stretched query at many places of a tune, in versions for several
// instruction sets; all give the same bits.
//
// Both are cut into the same segments. Whatever is subtracted from the query, the mean of a segment's
// differences is a lower bound for the mean of their magnitudes, and so are squares; what is best to subtract
// from the means of the segments gives a smaller sum than anything else. The mean of a segment of the tune is
// the difference of two of its running sums. (E. Keogh, K. Chakrabarti, M. Pazzani, S. Mehrotra,
// "Dimensionality Reduction for Fast Similarity Search in Large Time Series Databases", Knowledge and
// Information Systems 3, 2001, for squares without a shift.)
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

namespace wavepitch::utility {

inline constexpr std::size_t segmentNum = 16;

/// A version of the query, cut into segments. A version shorter than their number has no bound.
struct Segments {
    std::size_t edge[segmentNum]; ///< where each ends, and the next one begins
    double perValue[segmentNum];  ///< 1 / number of values
    double mean[segmentNum];      ///< of the version's values
    double weight[segmentNum];    ///< share of the version's values
    double leastWeight;           ///< the smallest of them
};

/// Bounds of the mean absolute (distanceType 1) or squared difference (2) at placeNum consecutive places.
///
/// @param sum    running sums of the tune from the first place on; a constant added to all has no effect.
/// @param bound  receives a bound for each place.
using PlaceBounds = void (*)(const Segments& version, int distanceType, const double* sum,
                             std::size_t placeNum, double* bound);

template <InstructionSet set>
void placeBoundsOf(const Segments& version, int distanceType, const double* sum, std::size_t placeNum,
                   double* bound);

/// The version that the next call uses.
inline PlaceBounds placeBounds() {
    return versionFor(instructionSet(), []<InstructionSet set> { return &placeBoundsOf<set>; });
}

} // namespace wavepitch::utility
