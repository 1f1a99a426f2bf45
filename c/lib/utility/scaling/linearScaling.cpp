// Three operations share the scan over the scales and the choice of the best; they differ in where a scaled
// query comes from and in how it is compared.
#include "utility/scaling/linearScaling.hpp"

#include "utility/fatal.hpp"
#include "utility/interruption.hpp"
#include "utility/rounding.hpp"
#include "utility/scaling/pointDistance.hpp"
#include "utility/vector/resample.hpp"

#include <algorithm>
#include <cstdlib>

#include "mex.h"

namespace {

using namespace wavepitch::utility;

/// Compares scale after scale until one is longer than the reference, and picks the best.
///
/// @param lengthOf  the length of a scale.
/// @param compare   the distance of a scale of a length that fits.
template <typename LengthOf, typename Compare>
double scanScales(int resolution, int referenceLen, double* distance, int& bestScale, LengthOf lengthOf,
                  Compare compare) {
    bestScale = 0;
    if (resolution < 1) return noMatchDistance;
    std::fill(distance, distance + resolution, noMatchDistance);
    LongWork work;
    for (int i = 0; i < resolution; ++i) {
        const int length = lengthOf(i);
        if (length > referenceLen) break;
        if (length < 1) continue;
        work.took(stepsOfMedian * static_cast<std::size_t>(length));
        distance[i] = compare(i, length);
        if (distance[i] < distance[bestScale]) bestScale = i;
    }
    return distance[bestScale];
}

/// The mean distance of a scaled query as it is.
double plainDistance(const double* scaled, const double* reference, int length, int distanceType) {
    if (!isDistanceType(distanceType)) {
        mexPrintf("Unknown method!\n");
        std::exit(1);
    }
    double sum = 0.0;
    for (int k = 0; k < length; ++k) sum += pointDistance(scaled[k] - reference[k], distanceType);
    return sum / length;
}

/// The summed distance, or noMatchDistance as soon as the sum exceeds the limit.
template <int distanceType>
double limitedSum(const double* scaled, const double* reference, int length, double limit) {
    double sum = 0.0;
    for (int k = 0; k < length; ++k) {
        sum += pointDistance(scaled[k] - reference[k], distanceType);
        if (sum > limit) return noMatchDistance;
    }
    return sum;
}

/// Comparison with a shift: the reference and what all scales share.
struct ShiftingComparison {
    const double* reference;
    int distanceType;
    double* difference;
    double cutoff;

    /// Subtracts the best offset from the scaled query and stores it in shift.
    ///
    /// @return  the mean distance of what is left.
    double operator()(double* scaled, int length, double& shift) const {
        if (!isDistanceType(distanceType))
            myExitFormatted("Unknown distance type (line %d of %s)", __LINE__, utilitySourcePath);
        for (int k = 0; k < length; ++k) difference[k] = scaled[k] - reference[k];
        const double offset = bestOffset(difference, length, distanceType);
        for (int k = 0; k < length; ++k) scaled[k] -= offset;
        shift = offset;
        const double limit = cutoff * length;
        const double sum = distanceType == absoluteDistance
                               ? limitedSum<absoluteDistance>(scaled, reference, length, limit)
                               : limitedSum<squaredDistance>(scaled, reference, length, limit);
        return sum / length;
    }
};

} // namespace

double linearScaling(const double* query, int queryLen, const double* reference, int referenceLen,
                     double lowerRatio, double upperRatio, int resolution, int distanceType, double* distance,
                     double* scaled, int& bestScale) {
    const int points = std::max(queryLen, 0);
    return scanScales(
        resolution, referenceLen, distance, bestScale,
        [&](int i) { return truncateToInt(scaleRatio(lowerRatio, upperRatio, resolution, i) * points); },
        [&](int, int length) {
            vecResample(query, points, scaled, length);
            return plainDistance(scaled, reference, length, distanceType);
        });
}

double linearScaling(const double* query, int queryLen, const double* reference, int referenceLen,
                     double lowerRatio, double upperRatio, int resolution, int distanceType, double* distance,
                     double* shift, double* scaled, double* difference, int& bestScale, double cutoff) {
    const int points = std::max(queryLen, 0);
    const ShiftingComparison compare{reference, distanceType, difference, cutoff};
    return scanScales(
        resolution, referenceLen, distance, bestScale,
        [&](int i) { return myRound(scaleRatio(lowerRatio, upperRatio, resolution, i) * points); },
        [&](int i, int length) {
            vecResample(query, points, scaled, length);
            return compare(scaled, length, shift[i]);
        });
}

double linearScaling2(SCALEDVECSET* set, const double* reference, int referenceLen, int distanceType,
                      double* distance, double* shift, double* /*unused*/, double* difference, int& bestScale,
                      double cutoff) {
    const ShiftingComparison compare{reference, distanceType, difference, cutoff};
    const auto stride = static_cast<std::size_t>(set->vecMaxLen);
    return scanScales(
        set->resolution, referenceLen, distance, bestScale, [&](int i) { return set->scaledVecLen[i]; },
        [&](int i, int length) {
            return compare(set->scaledVec + static_cast<std::size_t>(i) * stride, length, shift[i]);
        });
}
