#include "results.hpp"

#include <algorithm>
#include <cstdint>

namespace {

int sizeOf(const std::vector<int>& values) {
    return static_cast<int>(values.size());
}

template <typename T>
void fill(mxArray* array, const std::vector<int>& samples) {
    constexpr int offset = std::numeric_limits<T>::is_signed ? 0 : 128;
    constexpr std::int64_t least{std::numeric_limits<T>::min()}; // NOLINT(bugprone-signed-char-misuse)
    constexpr std::int64_t most{std::numeric_limits<T>::max()};
    auto* out = static_cast<T*>(mxGetData(array));
    for (const int sample : samples)
        *out++ = static_cast<T>(std::clamp(std::int64_t{sample} + offset, least, most));
}

void checkSize(const Call& call, double rows, double columns) {
    if (rows * columns > mostInt || rows > mostInt || columns > mostInt)
        call.refuse("the result would have more than 2147483647 elements");
}

} // namespace

mxArray* matrix(const Call& call, double rows, double columns) {
    checkSize(call, rows, columns);
    return mxCreateDoubleMatrix(static_cast<int>(rows), static_cast<int>(columns), mxREAL);
}

mxArray* singleMatrix(const Call& call, double rows, double columns) {
    checkSize(call, rows, columns);
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

mxArray* likeSamples(const Argument& shape, const std::vector<int>& samples, int nbits) {
    if (shape.isFloating()) {
        mxArray* array = vectorLike(shape, samples.size());
        std::transform(samples.begin(), samples.end(), mxGetPr(array),
                       [=](int sample) { return static_cast<double>(sample) / (1 << (nbits - 1)); });
        return array;
    }
    const bool isRow = shape.rows() == 1;
    mxArray* array = mxCreateNumericMatrix(isRow ? 1 : sizeOf(samples), isRow ? sizeOf(samples) : 1,
                                           shape.classID(), mxREAL);
    switch (shape.bits()) {
    case 8:
        if (shape.isSigned())
            fill<std::int8_t>(array, samples);
        else
            fill<std::uint8_t>(array, samples);
        break;
    case 16:
        fill<std::int16_t>(array, samples);
        break;
    default:
        fill<std::int32_t>(array, samples);
    }
    return array;
}
