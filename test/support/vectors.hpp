// Vectors that tests are made of.
#pragma once

#include <cstddef>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

using Doubles = std::vector<double>;
using Ints = std::vector<int>;

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

template <typename T>
int lengthOf(const std::vector<T>& vec) {
    return static_cast<int>(vec.size());
}

/// The elements with a space between them, six digits of each.
template <typename List>
std::string text(const List& list) {
    std::ostringstream joined;
    for (const auto& element : list) joined << (joined.tellp() > 0 ? " " : "") << element;
    return joined.str();
}

/// At least minLen and fewer than minLen + spread whole numbers, each at least 0 and below range.
inline Doubles randomDoubles(std::mt19937& random, size_t minLen, size_t spread, unsigned range) {
    Doubles vec(minLen + random() % spread);
    for (double& x : vec) x = static_cast<double>(random() % range);
    return vec;
}
