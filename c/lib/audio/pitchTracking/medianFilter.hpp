// Medians of pitch vectors: one pitch in semitones per frame, 0 for a frame without pitch.
#pragma once

#include "audio/pitchTracking/slidingMedian.hpp"
#include "utility/vector/median.hpp"

#include <algorithm>
#include <iterator>
#include <vector>

/// Replaces each value by the median of the order values around it, as they were before the call: from order
/// / 2 to its left to order / 2 to its right, for an even order one less to the right. The order / 2 values
/// at either end stay.
///
/// @param x      n values, changed in place.
/// @param order  values in a median; below 1, nothing changes, nor where no value has order / 2 on both
///               sides.
///
/// The time is n log n at most, for any order; only medians among negative zeros and not-a-numbers, whose
/// outcome is that of vecMedian, take as long as that.
template <typename T>
void medianFilter(T* x, int n, int order);

/// The median of the values that are not 0 (not-a-number counts as one); 0 if there is none.
///
/// @param pitch  n values, left as they are.
template <typename T>
T getPitchMedian(const T* pitch, int n);

template <typename T>
void medianFilter(T* x, int n, int order) {
    using wavepitch::pitchTracking::SlidingMedian;
    const int half = order / 2;
    if (order < 1 || n - half <= half) return;
    const std::vector<T> before(x, x + n);
    SlidingMedian<T> median(before, order);
    for (int i = half; i < n - half; ++i) x[i] = median.next();
}

template <typename T>
T getPitchMedian(const T* pitch, int n) {
    std::vector<T> voiced;
    std::copy_if(pitch, pitch + std::max(n, 0), std::back_inserter(voiced),
                 [](T value) { return value != T{}; });
    return vecMedian(voiced.data(), static_cast<int>(voiced.size()));
}
