// Median of a vector: by selection, and by counting over a histogram.
#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <limits>
#include <numeric>
#include <utility>
#include <vector>

/// The median of n values: the middle one, or for an even n the mean of the two in the middle, which for an
/// integer type is truncated toward zero ({1, 2} gives 1, {-3, 0} gives -1) and cannot overflow.
///
/// @param vec  n values in any order; left as they are.
/// @return     the median; 0 for n below 1, when vec is not looked at.
///
/// Linear in n for every order of the values: random, sorted, constant, saw-tooth. A zero median of a vector
/// that holds zeros of both signs may have either sign. Not-a-number compares unordered: a vector that holds
/// some gives what selection with the first value of the range as pivot comes to rest on (see
/// vecMedianInPlace), or where that takes too many steps the median with not-a-number above all numbers.
template <typename T>
T vecMedian(const T* vec, int n);

/// The same for callers that bring their own copy, such as those that take the median of every frame: no
/// memory is taken.
///
/// @param scratch  n values; left in another order.
template <typename T>
T vecMedianInPlace(T* scratch, int n);

/// The median of small non-negative integers, from a histogram of them. For an even n with two different
/// values in the middle: their mean, truncated.
///
/// @param vec         n values, each from 0 to histVecLen - 1. A value outside is reported by two lines on
///                    the host console and counted in the nearest bin.
/// @param histVec     receives the histogram: bin v holds how often the value v occurs.
/// @param histVecLen  number of bins.
/// @return            the median; 0 for n below 1 or without a bin.
int vecMedianByCounting(const int* vec, int n, int* histVec, int histVecLen);

// Selection narrows an active range of positions until its pivot comes to stand at the middle one. The pivot
// is the first value of the range, which makes constant, sorted and saw-tooth vectors take a quadratic number
// of steps; so a pivot that nothing in the range can be below is passed over without a look at the range, and
// a selection that takes much longer than a random vector's goes over to the standard library's.

namespace vectorMedian {

/// Partitions positions first to last around the value at first.
///
/// @return  the pivot's position: smaller values stand before it, all others after it.
template <typename T>
int partition(T* vec, int first, int last) {
    const T pivot = vec[first];
    int place = first;
    for (int i = first + 1; i <= last; ++i) {
        // Without a branch, which random values would make the processor guess wrong half of the time.
        const T value = vec[i];
        const T other = vec[place + 1];
        const bool smaller = value < pivot;
        vec[i] = smaller ? other : value;
        vec[place + 1] = smaller ? value : other;
        place += smaller ? 1 : 0;
    }
    std::swap(vec[first], vec[place]);
    return place;
}

/// Not-a-number above every number: an order that the standard library can select by.
template <typename T>
bool below(T a, T b) {
    if constexpr (std::floating_point<T>) {
        if (a != a) return false;
        if (b != b) return true;
    }
    return a < b;
}

template <typename T>
bool holdsNotANumber(const T* vec, int n) {
    return std::any_of(vec, vec + n, [](T value) { return value != value; });
}

/// Moves the value that belongs at position k there, smaller ones before it and others after it.
///
/// @return  the last position of the final range: what stands after it is not below what stands inside.
template <typename T>
int select(T* vec, int n, int k) {
    using Limits = std::numeric_limits<T>;
    constexpr std::int64_t patience = 4;           // random vectors take about 3.4 n steps
    constexpr std::int64_t longPatience = 1 << 24; // steps worth the exact outcome with not-a-number
    std::int64_t stepsLeft = patience * n;
    bool patient = false;
    T floor = Limits::has_infinity ? -Limits::infinity() : Limits::lowest(); // nothing in the range is below
    int lo = 0;
    int hi = n - 1;
    while (true) {
        const T pivot = vec[lo];
        int place = lo;
        if (pivot > floor) {
            stepsLeft -= hi - lo;
            if (stepsLeft < 0 && !patient && holdsNotANumber(vec + lo, hi - lo + 1)) {
                patient = true;
                stepsLeft = longPatience;
            }
            if (stepsLeft < 0) {
                std::nth_element(vec + lo, vec + k, vec + hi + 1, below<T>);
                return hi;
            }
            place = partition(vec, lo, hi);
        }
        if (place == k) return hi;
        if (place < k) {
            if (pivot > floor) floor = pivot;
            lo = place + 1;
        } else {
            hi = place - 1;
        }
    }
}

template <typename T>
T middle(T lower, T upper) {
    if constexpr (std::integral<T>) {
        const T mean = std::midpoint(lower, upper); // rounded down
        return static_cast<T>(mean + (mean < 0 && ((lower ^ upper) & 1) != 0 ? 1 : 0));
    } else {
        return (lower + upper) * static_cast<T>(0.5);
    }
}

} // namespace vectorMedian

template <typename T>
T vecMedianInPlace(T* scratch, int n) {
    if (n < 1) return T{};
    const int k = (n - 1) / 2;
    const int last = vectorMedian::select(scratch, n, k);
    if (n % 2 == 1) return scratch[k];
    // Where the final range ends at k, position k + 1 holds an earlier pivot, the smallest of what follows.
    const T upper = last == k ? scratch[k + 1] : *std::min_element(scratch + k + 1, scratch + last + 1);
    return vectorMedian::middle(scratch[k], upper);
}

template <typename T>
T vecMedian(const T* vec, int n) {
    if (n < 1) return T{};
    std::vector<T> copy(vec, vec + n);
    return vecMedianInPlace(copy.data(), n);
}

/// By bisection on the value (kernel/intMedian.hpp), which takes no memory and the same time for every order.
template <>
int vecMedian(const int* vec, int n);
