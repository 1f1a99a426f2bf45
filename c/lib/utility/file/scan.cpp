#include "utility/file/scan.hpp"

#include "utility/rounding.hpp"
#include "utility/string/blank.hpp"

#include <algorithm>

// fscanf leaves an integer beyond the range of its type undefined, so that digits are gathered here.
bool scanNumber(std::FILE* file, int& value) {
    constexpr std::int64_t limit = std::int64_t{1} << 31;
    int c = std::getc(file);
    while (c != EOF && isWhiteSpace(static_cast<char>(c))) c = std::getc(file);
    const bool negative = c == '-';
    if (c == '-' || c == '+') c = std::getc(file);
    std::int64_t magnitude = -1;
    for (; c >= '0' && c <= '9'; c = std::getc(file))
        magnitude = std::min(std::max<std::int64_t>(magnitude, 0) * 10 + (c - '0'), limit);
    std::ungetc(c, file);
    if (magnitude < 0) return false;
    value = clampToInt(negative ? -magnitude : magnitude);
    return true;
}

bool scanNumber(std::FILE* file, float& value) {
    return std::fscanf(file, "%f", &value) == 1;
}

bool scanNumber(std::FILE* file, double& value) {
    return std::fscanf(file, "%lf", &value) == 1;
}
