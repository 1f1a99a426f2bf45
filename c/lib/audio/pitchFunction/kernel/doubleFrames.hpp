// The flip and the mean of frames of doubles: one frame, or one in each lane of a tile. Their sums are taken
// in the order of the samples, so that frames one at a time wait for each addition.
#pragma once

#include "audio/pitchFunction/kernel/terms.hpp"

namespace {

inline double magnitude(double x) {
    return __builtin_fabs(x);
}

inline Doubles magnitude(Doubles x) {
    return maskedBy(Bits{} + Amdf::withoutSign, x);
}

inline void swapWhere(bool where, double& a, double& b) {
    const double kept = a;
    a = where ? b : a;
    b = where ? kept : b;
}

inline void swapWhere(Bits where, Doubles& a, Doubles& b) {
    const Doubles kept = a;
    a = where ? b : a;
    b = where ? kept : b;
}

template <typename Sample>
inline Sample meanOf(const Sample* x, size_t n) {
    Sample sum = {};
    for (size_t j = 0; j < n; ++j) sum += x[j];
    return sum / static_cast<double>(n);
}

/// cAudio::frameFlip of a frame, or of the frame in each lane.
template <typename Sample>
inline void flip(Sample* x, size_t n) {
    const Sample mean = meanOf(x, n);
    const size_t half = n / 2;
    Sample first = {};
    Sample second = {};
    for (size_t j = 0; j < half; ++j) {
        first += magnitude(x[j] - mean);
        second += magnitude(x[half + j] - mean);
    }
    if (n % 2) second += magnitude(x[n - 1] - mean);
    for (size_t j = 0; j < half; ++j) swapWhere(second > first, x[j], x[n - 1 - j]);
}

template <typename Sample>
inline void subtractMean(Sample* x, size_t n) {
    const Sample mean = meanOf(x, n);
    for (size_t j = 0; j < n; ++j) x[j] -= mean;
}

/// The flip and the mean removal that the task asks for.
template <typename Sample>
inline void prepare(const Task& task, Sample* x) {
    if (task.flip) flip(x, task.frameSize);
    if (task.removeMean) subtractMean(x, task.frameSize);
}

} // namespace
