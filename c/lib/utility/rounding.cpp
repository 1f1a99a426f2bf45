#include "utility/rounding.hpp"

#include <algorithm>
#include <limits>

int wavepitch::utility::truncateToInt(double x) {
    constexpr double above = 2147483648.0; // 2^31
    if (x >= above) return std::numeric_limits<int>::max();
    if (x <= -above) return std::numeric_limits<int>::min();
    return x == x ? static_cast<int>(x) : 0;
}

int wavepitch::utility::clampToInt(std::int64_t value) {
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

int myRound(double x) {
    return truncateToInt(x > 0.0 ? x + 0.5 : x - 0.5);
}

int myRound(float x) {
    return myRound(static_cast<double>(x));
}

int intDiv(int a, int b) {
    if (b == 0) return 0;
    const std::int64_t half = b / 2;
    const std::int64_t numerator = a > 0 ? a + half : a - half;
    return clampToInt(numerator / b);
}
