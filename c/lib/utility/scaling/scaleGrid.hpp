// The ratios of linear scaling. Internal to the scaling operations.
#pragma once

namespace wavepitch::utility {

/// The ratio of scale i, formed from left to right: a step formed beforehand would round to other lengths.
inline double scaleRatio(double lowerRatio, double upperRatio, int resolution, int i) {
    if (resolution < 2) return lowerRatio;
    return lowerRatio + i * (upperRatio - lowerRatio) / (resolution - 1);
}

} // namespace wavepitch::utility
