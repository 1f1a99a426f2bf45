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
    const int mean = pitchFunctionKernel::roundedMean(sumOf(x, n), n);
    const size_t half = n / 2;
    if (deviationFrom(mean, x + half, n - half) <= deviationFrom(mean, x, half)) return;
    for (size_t j = 0; j < half; ++j) {
        const int front = x[j];
        x[j] = x[n - 1 - j];
        x[n - 1 - j] = front;
    }
}

/// Subtracts the mean; a difference beyond the range of int is its nearest end.
void subtractMean(int* x, size_t n) {
    const int mean = static_cast<int>(sumOf(x, n) / static_cast<std::int64_t>(n));
    for (size_t j = 0; j < n; ++j) {
        const int difference = static_cast<int>(static_cast<unsigned>(x[j]) - static_cast<unsigned>(mean));
        const bool outside = ((x[j] ^ mean) & (x[j] ^ difference)) < 0;
        const int nearest = x[j] < 0 ? INT32_MIN : INT32_MAX;
        x[j] = outside ? nearest : difference;
    }
}

/// A copy of the frame as the task wants it, with a zero behind it, in row; widens the range to its samples.
inline void prepareRow(const Task& task, const int* frame, int* row, Range& range) {
    const size_t n = task.frameSize;
    for (size_t j = 0; j < n; ++j) row[j] = frame[j];
    row[n] = 0;
    if (task.flip) flipInts(row, n);
    if (task.removeMean) subtractMean(row, n);
    int low = range.low;
    int high = range.high;
    for (size_t j = 0; j < n; ++j) {
        low = row[j] < low ? row[j] : low;
        high = row[j] > high ? row[j] : high;
    }
    range = {low, high};
}

} // namespace
