// Frame features as plain loops: what the kernels must equal.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <vector>

using WideInts = std::vector<std::int64_t>;

/// Each distance counts at most the largest int.
inline std::int64_t sumOfDistances(const WideInts& x, std::int64_t from) {
    std::int64_t sum = 0;
    for (const auto value : x) sum += std::min<std::int64_t>(std::abs(value - from), INT_MAX);
    return sum;
}

template <typename Sample>
int plainCrossings(const std::vector<Sample>& x) {
    const auto sign = [](Sample value) { return int(value > 0) - int(value < 0); };
    int count = 0;
    for (size_t i = 1; i < x.size(); ++i)
        if (sign(x[i - 1]) * sign(x[i]) < 0) ++count;
    return count;
}
