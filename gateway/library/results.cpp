#include "results.hpp"

#include <algorithm>
#include <cstdint>

namespace {

template <typename T>
void fill(mxArray* array, std::span<const int> samples) {
    constexpr int offset = std::numeric_limits<T>::is_signed ? 0 : 128;
    constexpr std::int64_t least{std::numeric_limits<T>::min()}; // NOLINT(bugprone-signed-char-misuse)
    constexpr std::int64_t most{std::numeric_limits<T>::max()};
    auto* out = static_cast<T*>(mxGetData(array));
    for (const int sample : samples)
        *out++ = static_cast<T>(std::clamp(std::int64_t{sample} + offset, least, most));
}

} // namespace

void requireRoom(const Call& call, double values, const char* by) {
    const double most = std::min<double>(std::max(freeRoom, roomPerValue * call.valuesGiven()), mostInt);
    if (values <= most) return;
    call.refuse("room for " + textOf(values) + " values is asked for, by " + by + "; this call may have " +
                textOf(most));
}

int resultLength(const Call& call, double length, const char* by) {
    requireRoom(call, length, by);
    return static_cast<int>(length);
}

mxArray* matrix(const Call& call, double rows, double columns, const char* by) {
    requireRoom(call, std::max({rows * columns, rows, columns}), by);
    return mxCreateDoubleMatrix(static_cast<int>(rows), static_cast<int>(columns), mxREAL);
}

mxArray* singleMatrix(const Call& call, double rows, double columns, const char* by) {
    requireRoom(call, std::max({rows * columns, rows, columns}), by);
    return mxCreateNumericMatrix(static_cast<int>(rows), static_cast<int>(columns), mxSINGLE_CLASS, mxREAL);
}

mxArray* segmentRows(const Call& call, const std::vector<double>& segments, int waveLen) {
    const size_t count = segments.size() / 2;
    mxArray* array = matrix(call, static_cast<double>(count), 2);
    for (size_t i = 0; i < segments.size(); ++i)
        mxGetPr(array)[i % 2 * count + i / 2] = std::clamp(segments[i], 1.0, static_cast<double>(waveLen));
    return array;
}

mxArray* scalar(double value) {
    mxArray* array = mxCreateDoubleMatrix(1, 1, mxREAL);
    *mxGetPr(array) = value;
    return array;
}

mxArray* cellRow(const std::vector<mxArray*>& cells) {
    mxArray* array = mxCreateCellMatrix(1, static_cast<int>(cells.size()));
    for (size_t i = 0; i < cells.size(); ++i) mxSetCell(array, static_cast<int>(i), cells[i]);
    return array;
}

mxArray* vectorLike(const Argument& shape, size_t count) {
    const bool isRow = shape.rows() == 1;
    const auto length = static_cast<int>(count);
    return mxCreateDoubleMatrix(isRow ? 1 : length, isRow ? length : 1, mxREAL);
}

mxArray* arrayLike(const Argument& shape, size_t count) {
    if (shape.isFloating()) return vectorLike(shape, count);
    const bool isRow = shape.rows() == 1;
    const auto length = static_cast<int>(count);
    return mxCreateNumericMatrix(isRow ? 1 : length, isRow ? length : 1, shape.classID(), mxREAL);
}

void setSamples(mxArray* array, std::span<const int> samples, int nbits) {
    switch (mxGetClassID(array)) {
    case mxDOUBLE_CLASS:
        std::transform(samples.begin(), samples.end(), mxGetPr(array),
                       [=](int sample) { return static_cast<double>(sample) / (1 << (nbits - 1)); });
        break;
    case mxINT8_CLASS:
        return fill<std::int8_t>(array, samples);
    case mxUINT8_CLASS:
        return fill<std::uint8_t>(array, samples);
    case mxINT16_CLASS:
        return fill<std::int16_t>(array, samples);
    default:
        return fill<std::int32_t>(array, samples);
    }
}
