// Sums of many terms.
#pragma once

#include <array>
#include <cstddef>

namespace wavepitch::voice {

/// The sum of term(0) to term(num - 1) in double precision. Its parts are formed side by side: their order
/// does not depend on the instruction set.
template <typename Term>
double sumOf(std::size_t num, const Term& term) {
    constexpr std::size_t parts = 8;
    std::array<double, parts> sums{};
    const std::size_t whole = num - num % parts;
    for (std::size_t i = 0; i < whole; i += parts)
        for (std::size_t k = 0; k < parts; ++k) sums[k] += term(i + k);
    for (std::size_t i = whole; i < num; ++i) sums[i - whole] += term(i);
    double sum = 0;
    for (const double part : sums) sum += part;
    return sum;
}

} // namespace wavepitch::voice
