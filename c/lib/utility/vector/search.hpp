// In which interval of a sorted table a value lies, and what a table says there.
#pragma once

#include "utility/rounding.hpp"

#include <cstdint>
#include <type_traits>

/// Binary search among boundaries[left .. right]. Boundary i is the lower edge of interval i + 1: interval 0
/// lies below the first boundary, interval n at or above the last. Over a whole table of n distinct
/// boundaries (left 0, right n - 1) the result is the number of boundaries not above the value.
///
/// @param value       what to look for; a value that compares unordered lies above every boundary.
/// @param boundaries  ascending. Among repeated boundaries the result is one past whichever equal entry the
///                    bisection meets first.
/// @param left        first position.
/// @param right       last position, inclusive.
/// @return            the interval; right + 1 for right below left, when boundaries is not looked at.
template <typename T>
int rangeSearchBinSub(std::type_identity_t<T> value, const T* boundaries, int left, int right) {
    std::int64_t lo = left;
    std::int64_t hi = right;
    while (lo <= hi) {
        const std::int64_t mid = (lo + hi) / 2;
        if (boundaries[mid] == value) return clampToInt(mid + 1);
        if (boundaries[mid] > value)
            hi = mid - 1;
        else
            lo = mid + 1;
    }
    return clampToInt(hi + 1);
}

/// The interval r of rangeSearchBinSub over all n boundaries, renumbered: r + offset, or (n - r) + offset.
///
/// @param n        number of boundaries; below 1, the table is empty and r and n are 0.
/// @param value    what to look for.
/// @param offset   added to the interval; the sum saturates at the ends of the range of int.
/// @param reverse  non-zero counts the intervals from the top.
int tableLookupByRangeSearch(const int* boundaries, int n, int value, int offset, int reverse);

/// Linear interpolation in a table over an evenly spaced grid: entry i belongs to minX + i * step.
///
/// @param table  n entries.
/// @param n      at least 1; below, the result is 0.
/// @param x      where to look. At or below minX the result is table[0], at or above maxX it is table[n - 1];
///               where rounding takes x past the last interval, the last interval is used. Not-a-number
///               gives not-a-number, or table[0] for n = 1.
/// @param minX   abscissa of table[0].
/// @param maxX   abscissa of table[n - 1].
/// @param step   distance of the grid, above 0.
double tableLookupByDirectMapping(const double* table, int n, double x, double minX, double maxX,
                                  double step);
