// Frames of ints, one row each: the flip, the mean and the range. Integer sums are exact in any order, which
// leaves these loops to the compiler's own vectors.
#pragma once

#include "audio/pitchFunction/kernel/pairs.hpp"

namespace {

inline std::int64_t sumOf(const int* x, size_t n) {
    std::int64_t sum = 0;
    for (size_t j = 0; j < n; ++j) sum += x[j];
    return sum;
}

inline std::int64_t deviationFrom(int mean, const int* x, size_t n) {
    std::int64_t sum = 0;
    for (size_t j = 0; j < n; ++j) {
        const std::int64_t difference = std::int64_t{x[j]} - mean;
        sum += difference < 0 ? -difference : difference;
    }
    return sum;
}

void flipInts(int* x, size_t n) {
    const int mean = wavepitch::pitchFunction::roundedMean(sumOf(x, n), n);
    const size_t half = n / 2;
    if (deviationFrom(mean, x + half, n - half) <= deviationFrom(mean, x, half)) return;
    for (size_t j = 0; j < half; ++j) {
        const int front = x[j];
        x[j] = x[n - 1 - j];
        x[n - 1 - j] = front;
    }
}

/// x - mean, or the nearest end of the range of int.
WAVEPITCH_INLINE inline int difference(int x, int mean) {
    const int wrapped = static_cast<int>(static_cast<unsigned>(x) - static_cast<unsigned>(mean));
    const bool outside = ((x ^ mean) & (x ^ wrapped)) < 0;
    const int nearest = x < 0 ? INT32_MIN : INT32_MAX;
    return outside ? nearest : wrapped;
}

/// Subtracts the mean, and returns it.
inline int removeMean(int* x, size_t n) {
    const int mean = static_cast<int>(sumOf(x, n) / static_cast<std::int64_t>(n));
    for (size_t j = 0; j < n; ++j) x[j] = difference(x[j], mean);
    return mean;
}

/// A copy of the frame as the task wants it, with a zero behind it, in row. Returns the range of its samples.
inline Range prepareRow(const Task& task, const int* frame, int* row) {
    const size_t n = task.frameSize;
    int low = INT32_MAX;
    int high = INT32_MIN;
    for (size_t j = 0; j < n; ++j) {
        const int x = frame[j];
        low = x < low ? x : low;
        high = x > high ? x : high;
        row[j] = x;
    }
    row[n] = 0;
    if (task.flip) flipInts(row, n);
    if (!task.removeMean || n == 0) return {low, high};
    const int mean = removeMean(row, n);
    return {difference(low, mean), difference(high, mean)};
}

} // namespace
