// Median of a vector: by selection, and by counting over a histogram.
#pragma once

#include "utility/vector/medianSelection.hpp"

#include <algorithm>
#include <concepts>
#include <cstddef>
#include <memory>
#include <numeric>

/// The median of n values: the middle one, or for an even n the mean of the two in the middle, which for an
/// integer type is truncated toward zero ({1, 2} gives 1, {-3, 0} gives -1) and cannot overflow.
///
/// @param vec  n values in any order, of an integer type, float or double; left as they are.
/// @return     the median; 0 for n below 1, when vec is not looked at.
///
/// Linear in n for every order of the values: random, sorted, constant, saw-tooth. Not-a-number compares
/// unordered, and zeros of both signs compare equal: which of them is found follows from the selection that
/// takes the first value of a range as pivot and swaps smaller ones in front of it, in order. With
/// not-a-number, or zeros of both signs in the middle, the time may grow to n log n.
template <typename T>
T vecMedian(const T* vec, int n);

/// The same for callers that bring a copy of their own: up to 1024 values take no memory, but for orders that
/// take n log n.
///
/// @param scratch  n values; changed to anything.
template <typename T>
T vecMedianInPlace(T* scratch, int n);

/// The median of small non-negative integers, from a histogram of them. For an even n whose upper middle
/// value occurs only once: the mean of it and the next smaller value, truncated. If it occurs more often, it
/// is the result, even where the lower middle value is a smaller one ({0, 1, 0, 1} gives 1).
///
/// @param vec         n values, each from 0 to histVecLen - 1. A value outside is reported by two lines on
///                    the host console and counted in the nearest bin.
/// @param histVec     receives the histogram: bin v holds how often the value v occurs.
/// @param histVecLen  number of bins.
/// @return            the median; 0 for n below 1 or without a bin.
int vecMedianByCounting(const int* vec, int n, int* histVec, int histVecLen);

namespace wavepitch::utility {

/// The mean of two values, truncated toward zero for integers.
template <typename T>
T meanOfMiddle(T lower, T upper) {
    if constexpr (std::integral<T>) {
        const T mean = std::midpoint(lower, upper); // rounded toward the lower one
        return static_cast<T>(mean + (mean < 0 && ((lower ^ upper) & 1) != 0 ? 1 : 0));
    } else {
        return (lower + upper) * static_cast<T>(0.5);
    }
}

/// The median of n values, n at least 1, which this uses up; spare has room for as many.
template <typename T>
T medianWithSpare(T* values, T* spare, int n) {
    const int k = (n - 1) / 2;
    const auto middle = [&] {
        if constexpr (std::floating_point<T>)
            if (medianSelection::isAmbiguous(values, n, k))
                return medianSelection::byFirstPivot(values, n, k);
        return medianSelection::bySplitting(values, spare, n, k);
    }();
    return n % 2 == 1 ? middle.lower : meanOfMiddle(middle.lower, middle.upper);
}

} // namespace wavepitch::utility

template <typename T>
T vecMedianInPlace(T* scratch, int n) {
    constexpr int frameSize = 1024;
    if (n < 1) return T{};
    if (n > frameSize)
        return wavepitch::utility::medianWithSpare(
            scratch, std::make_unique_for_overwrite<T[]>(static_cast<std::size_t>(n)).get(), n);
    T spare[frameSize];
    return wavepitch::utility::medianWithSpare(scratch, spare, n);
}

template <typename T>
T vecMedian(const T* vec, int n) {
    if (n < 1) return T{};
    const auto length = static_cast<std::size_t>(n);
    // One block: allocators keep it for the next call where they would give two back.
    const auto block = std::make_unique_for_overwrite<T[]>(2 * length);
    std::copy(vec, vec + n, block.get());
    return wavepitch::utility::medianWithSpare(block.get(), block.get() + length, n);
}

/// By bisection on the value (kernel/intMedian.hpp), which takes no memory and the same time for every order.
template <>
int vecMedian(const int* vec, int n);
