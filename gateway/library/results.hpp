// The host's arrays, made of what the library has computed. Sizes are checked before the host is asked.
#pragma once

#include "command.hpp"

#include <span>
#include <vector>

/// What a call may make room for, whatever it is given: 2^27 values, 1 GB of doubles. Beyond that, 1024
/// values for each that it is given, as far as the host's 32-bit dimensions reach: results of long recordings
/// pass, wherever the memory holds them, and a slip of the pen in a rate or a size does not.
inline constexpr double freeRoom = 1 << 27;
inline constexpr double roomPerValue = 1024;

/// Refuses a call that would need more room, before any work.
///
/// @param by  the arguments that decide, as messages name them.
void requireRoom(const Call& call, double values, const char* by);

/// A result's length in samples or values, which must have room.
int resultLength(const Call& call, double length, const char* by);

/// A rows x columns matrix of zeros, which must have room.
mxArray* matrix(const Call& call, double rows, double columns, const char* by = "the inputs");

/// The same of class single.
mxArray* singleMatrix(const Call& call, double rows, double columns, const char* by);

/// Segments, given as first and last sample by turns and from 1, as a row each; kept within the recording.
mxArray* segmentRows(const Call& call, const std::vector<double>& segments, int waveLen);

/// One value for each frame, or any other list: 1 x n. Each element is converted to double and shifted.
template <typename T>
mxArray* row(const std::vector<T>& values, double shift = 0) {
    mxArray* array = mxCreateDoubleMatrix(1, static_cast<int>(values.size()), mxREAL);
    double* out = mxGetPr(array);
    for (const T& value : values) *out++ = static_cast<double>(value) + shift;
    return array;
}

mxArray* scalar(double value);

/// A 1 x n cell array of arrays, which it takes over.
mxArray* cellRow(const std::vector<mxArray*>& cells);

/// A vector of count zeros, a row or a column as an input is.
mxArray* vectorLike(const Argument& shape, size_t count);

/// The same for samples in the class of an input; of class double for an input of floating point.
mxArray* arrayLike(const Argument& shape, size_t count);

/// Writes samples into such an array, saturated; unsigned 8 bits around 128. In class double they are divided
/// by 2^(nbits - 1).
void setSamples(mxArray* array, std::span<const int> samples, int nbits);
