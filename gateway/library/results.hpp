// The host's arrays, made of what the library has computed. Sizes are checked before the host is asked.
#pragma once

#include "command.hpp"

#include <vector>

/// A rows x columns matrix of zeros; refuses one that the host's 32-bit dimensions do not hold.
mxArray* matrix(const Call& call, double rows, double columns);

/// The same of class single.
mxArray* singleMatrix(const Call& call, double rows, double columns);

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

/// Samples in the class of an input, saturated, a row or a column as it is; unsigned 8 bits around 128.
/// Samples for an input of floating point are divided by 2^(nbits - 1).
mxArray* likeSamples(const Argument& shape, const std::vector<int>& samples, int nbits);
