#include "support/bytes.hpp"

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <limits>

Bytes::Bytes(std::span<const std::uint8_t> input) : rest(input), state(0) {
    state = next(2);
}

/// G. Steele, D. Lea, C. Flood, "Fast splittable pseudorandom number generators", OOPSLA 2014.
std::uint64_t Bytes::generated() {
    std::uint64_t bits = state += 0x9E3779B97F4A7C15U;
    bits = (bits ^ bits >> 30) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ bits >> 27) * 0x94D049BB133111EBU;
    return bits ^ bits >> 31;
}

std::uint64_t Bytes::next(int count) {
    const auto wanted = static_cast<std::size_t>(count);
    if (rest.size() < wanted) {
        rest = {};
        return generated() >> (64 - 8 * count);
    }
    std::uint64_t value = 0;
    for (const std::uint8_t byte : rest.first(wanted)) value = value << 8 | byte;
    rest = rest.subspan(wanted);
    return value;
}

int Bytes::below(int end) {
    const int count = end <= 256 ? 1 : end <= 65536 ? 2 : 4;
    return static_cast<int>(next(count) % static_cast<std::uint64_t>(end));
}

int Bytes::from(int least, int most) {
    return least + below(most - least + 1);
}

int Bytes::anyInt() {
    switch (below(4)) {
    case 0:
        return from(-20, 200);
    case 1:
        return oneOf({INT_MIN, INT_MIN + 1, -32768, 32767, 65536, INT_MAX - 1, INT_MAX});
    case 2:
        return static_cast<int>(next(4)) >> below(32);
    default:
        return static_cast<int>(next(4));
    }
}

double Bytes::anyDouble() {
    using Limits = std::numeric_limits<double>;
    switch (below(5)) {
    case 0:
        return from(-9, 99);
    case 1:
        return std::ldexp(static_cast<double>(next(4)) - 0x1p31, -31);
    case 2:
        return oneOf({0.0, -0.0, Limits::denorm_min(), Limits::max(), Limits::lowest(), Limits::infinity(),
                      -Limits::infinity(), Limits::quiet_NaN(), 0x1p31, -0x1p31, 0x1p53});
    case 3:
        return std::ldexp(static_cast<double>(next(2)) - 32768, from(-40, 40));
    default:
        return std::bit_cast<double>(next(8));
    }
}

int Bytes::length(int least, int most) {
    if (flag()) return from(least, most);
    const int power = 1 << below(static_cast<int>(std::bit_width(static_cast<unsigned>(most))));
    return std::clamp(power + from(-1, 2), least, most);
}

std::string Bytes::text(int length) {
    std::string result(static_cast<std::size_t>(length), '\0');
    for (char& c : result) c = static_cast<char>(next(1));
    return result;
}
