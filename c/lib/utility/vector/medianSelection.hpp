// Selection of the two values in the middle of a vector. Internal to median.hpp.
//
// By splitting, where values that compare equal give the same median: a pivot near the middle splits the
// range into smaller values and others, and the side that holds the middle is split again (C. A. R. Hoare,
// "Algorithm 65: Find", Communications of the ACM 4, 1961). The sides go to two arrays, so that no step waits
// for a comparison: random values would make the processor guess wrong half of the time. The pivot comes from
// nine places scattered over the range, which sorted, constant and saw-tooth vectors treat like any other.
// With the lengths that linear scaling compares, 125 to 1000 values, the standard library's selection, which
// takes over where splitting takes much longer than with random values, needs two to five times as long.
//
// By the first value as pivot, for vectors with not-a-number, and for those whose median is a zero where
// there are zeros of both signs: which of the values that compare equal or unordered comes to stand in the
// middle follows from the exchanges, and these are the exchanges that the median is defined by. Where they
// take long, a tree takes over (medianExchanges.hpp).
#pragma once

#include "utility/vector/medianExchanges.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <iterator>
#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

namespace wavepitch::utility::medianSelection {

/// The values at the sorted positions k and k + 1; upper means nothing if there is no position k + 1.
template <typename T>
struct Middle {
    T lower;
    T upper;
};

/// The standard library's selection among len values.
///
/// @param follows  the smallest value behind the range, used if k is the last position in it.
template <typename T>
Middle<T> bySorting(T* range, int len, int k, T follows) {
    std::nth_element(range, range + k, range + len);
    return {range[k], k + 1 < len ? *std::min_element(range + k + 1, range + len) : follows};
}

template <typename T>
T medianOf3(T a, T b, T c) {
    return std::max(std::min(a, b), std::min(std::max(a, b), c));
}

/// A value near the middle of a range: the median of three medians of three, from scattered places (fixed
/// ones for a length: the same vector always takes the same steps).
template <typename T>
T scatteredPivot(const T* range, int len) {
    std::uint64_t state = 1;
    const auto next = [&] {
        state = state * 6364136223846793005U + 1442695040888963407U; // D. E. Knuth's generator MMIX
        return range[(state >> 32) * static_cast<std::uint64_t>(len) >> 32];
    };
    const auto nextMedian = [&] {
        const T a = next();
        const T b = next();
        return medianOf3(a, b, next());
    };
    const T a = nextMedian();
    const T b = nextMedian();
    return medianOf3(a, b, nextMedian());
}

/// Moves values below the pivot to the front of the range and the others to spare.
///
/// @return  the number of values below the pivot.
template <typename T>
int split(T* range, int len, T pivot, T* spare) {
    int smaller = 0;
    for (int i = 0; i < len; ++i) {
        const T value = range[i];
        range[smaller] = value;
        spare[i - smaller] = value;
        smaller += static_cast<int>(value < pivot);
    }
    return smaller;
}

/// Moves values above the pivot to the front of the range.
///
/// @return  the number of values above the pivot.
template <typename T>
int keepAbove(T* range, int len, T pivot) {
    int above = 0;
    for (int i = 0; i < len; ++i) {
        const T value = range[i];
        range[above] = value;
        above += static_cast<int>(pivot < value);
    }
    return above;
}

/// @param range  len values, which this uses up.
/// @param spare  room for len values.
template <typename T>
Middle<T> bySplitting(T* range, T* spare, int len, int k) {
    constexpr int shortRange = 16;
    std::int64_t stepsLeft = std::int64_t{16} * len;
    T follows = range[0];
    while (len > shortRange && stepsLeft > 0) {
        stepsLeft -= len;
        const T pivot = scatteredPivot(range, len);
        const int smaller = split(range, len, pivot, spare);
        if (k < smaller) {
            len = smaller;
            follows = pivot;
            continue;
        }
        k -= smaller;
        len -= smaller;
        std::swap(range, spare);
        if (smaller > 0) continue;
        // The pivot is the smallest: without its equals the range gets shorter in any case.
        const int above = keepAbove(range, len, pivot);
        const int equal = len - above;
        if (k + 1 < equal) return {pivot, pivot};
        if (k + 1 == equal) return {pivot, above > 0 ? *std::min_element(range, range + above) : follows};
        k -= equal;
        len = above;
    }
    return bySorting(range, len, k, follows);
}

/// Swaps the values below the first one in front of it.
///
/// @return  where the first value stands now.
template <typename T>
int partitionAroundFirst(T* range, int len) {
    int place = 0;
    for (int i = 1; i < len; ++i)
        if (range[i] < range[0]) std::swap(range[i], range[++place]);
    std::swap(range[0], range[place]);
    return place;
}

/// Ranks as byExchanges asks for them.
template <std::floating_point T>
std::vector<int> ranksOf(const T* values, int n) {
    std::vector<T> ordered;
    std::copy_if(values, values + n, std::back_inserter(ordered), [](T x) { return x == x; });
    std::sort(ordered.begin(), ordered.end());
    std::vector<int> rank;
    for (const T* x = values; x != values + n; ++x) {
        const auto place = std::upper_bound(ordered.begin(), ordered.end(), *x) - ordered.begin();
        rank.push_back(*x == *x ? static_cast<int>(place) : unordered);
    }
    return rank;
}

/// @param vec  n values, which this moves about.
template <std::floating_point T>
Middle<T> byFirstPivot(T* vec, int n, int k) {
    std::int64_t stepsLeft = std::int64_t{16} * n; // random values take a quarter of it
    T floor = -std::numeric_limits<T>::infinity(); // no value of the range is below
    int first = 0;
    int end = n;
    while (true) {
        const T pivot = vec[first];
        int place = first;
        if (pivot > floor) { // any other pivot stays where it is
            stepsLeft -= end - first;
            if (stepsLeft < 0) {
                const T* range = vec + first;
                const auto [lower, upper] = byExchanges(ranksOf(range, end - first), k - first);
                return {range[lower], upper >= 0 ? range[upper] : vec[std::min(end, n - 1)]};
            }
            place += partitionAroundFirst(vec + first, end - first);
        }
        if (place == k) break;
        if (place < k) {
            if (pivot > floor) floor = pivot;
            first = place + 1;
        } else {
            end = place;
        }
    }
    // Where the final range ends at k, an earlier pivot stands behind it, the smallest of what follows.
    T upper = k + 1 < n ? vec[k + 1] : vec[k];
    for (int i = k + 2; i < end; ++i)
        if (vec[i] < upper) upper = vec[i];
    return {vec[k], upper};
}

/// Whether a vector holds not-a-number or a negative zero. In integer arithmetic on the values' bits, which
/// compilers turn into vector instructions.
template <std::floating_point T>
bool holdsAmbiguous(const T* vec, int n) {
    using Bits = std::conditional_t<sizeof(T) == sizeof(std::uint32_t), std::uint32_t, std::uint64_t>;
    constexpr Bits sign = std::bit_cast<Bits>(-T{0});
    constexpr Bits aboveInfinity = sign - 1 - std::bit_cast<Bits>(std::numeric_limits<T>::infinity());
    Bits found = 0;
    for (int i = 0; i < n; ++i) {
        const Bits bits = std::bit_cast<Bits>(vec[i]);
        const Bits magnitude = bits & (sign - 1);
        found |= (magnitude + aboveInfinity) | ((magnitude - 1) & bits); // sign bit: not-a-number, or -0
    }
    return (found & sign) != 0;
}

/// Whether the median of n values, with the lower middle one at place k, is not-a-number's matter or a zero
/// of which there are both signs. Beside another value in the middle, the sign of a zero leaves no trace in
/// their mean.
template <std::floating_point T>
bool isAmbiguous(const T* vec, int n, int k) {
    if (!holdsAmbiguous(vec, n)) return false;
    if (std::any_of(vec, vec + n, [](T x) { return x != x; })) return true;
    const auto negative = std::count_if(vec, vec + n, [](T x) { return x < 0; });
    const auto zeros = std::count(vec, vec + n, T{0});
    const auto negativeZeros = std::count_if(vec, vec + n, [](T x) { return x == 0 && std::signbit(x); });
    const bool medianIsZero = negative <= k && (n % 2 == 1 ? k : k + 1) < negative + zeros;
    return medianIsZero && negativeZeros < zeros;
}

} // namespace wavepitch::utility::medianSelection
