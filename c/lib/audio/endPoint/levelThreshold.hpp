// A threshold inside the range of a recording's levels.
#pragma once

#include "utility/rounding.hpp"

#include <cstdint>
#include <limits>

/// lowest + (highest - lowest) / ratio, the division truncating toward zero. A ratio of 0 gives the largest
/// int: the limit that small ratios run to, which no level is above.
inline int levelThreshold(int lowest, int highest, int ratio) {
    if (ratio == 0) return std::numeric_limits<int>::max();
    return clampToInt(lowest + (std::int64_t{highest} - lowest) / ratio);
}
