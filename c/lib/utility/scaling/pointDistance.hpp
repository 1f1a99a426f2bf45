// The two distances that sequences are compared by. Internal to the scaling operations.
#pragma once

#include "utility/vector/median.hpp"

#include <cmath>

namespace wavepitch::utility {

/// Values of the parameter distanceType: |a - b|, and (a - b)^2.
enum DistanceType : int { absoluteDistance = 1, squaredDistance = 2 };

inline bool isDistanceType(int distanceType) {
    return distanceType == absoluteDistance || distanceType == squaredDistance;
}

inline double pointDistance(double difference, int distanceType) {
    return distanceType == absoluteDistance ? std::fabs(difference) : difference * difference;
}

/// The offset that brings two sequences closest together, from their n point-wise differences: the median
/// (absolute distance) or the mean (squared distance). The differences are left in any order.
inline double bestOffset(double* difference, int n, int distanceType) {
    if (distanceType == absoluteDistance) return vecMedianInPlace(difference, n);
    double sum = 0.0;
    for (int k = 0; k < n; ++k) sum += difference[k];
    return sum / n;
}

/// The summed distance of a sequence, less an offset, from another one. It only ever grows: once it has
/// reached the limit the rest is of no interest.
inline double shiftedDistance(const double* sequence, const double* other, int n, double offset,
                              int distanceType, double limit) {
    double sum = 0.0;
    for (int k = 0; k < n && !(sum >= limit); ++k)
        sum += pointDistance((sequence[k] - offset) - other[k], distanceType);
    return sum;
}

} // namespace wavepitch::utility
