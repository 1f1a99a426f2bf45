#include "output.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace {

template <typename T>
std::vector<double> converted(const std::string& bytes) {
    std::vector<T> elements(bytes.size() / sizeof(T));
    std::memcpy(elements.data(), bytes.data(), elements.size() * sizeof(T));
    return {elements.begin(), elements.end()};
}

std::vector<double> elementsOf(const mxArray& array) {
    switch (array.classID) {
    case mxSINGLE_CLASS:
        return converted<float>(array.bytes);
    case mxINT8_CLASS:
        return converted<std::int8_t>(array.bytes);
    case mxUINT8_CLASS:
        return converted<std::uint8_t>(array.bytes);
    case mxINT16_CLASS:
        return converted<std::int16_t>(array.bytes);
    case mxUINT16_CLASS:
        return converted<std::uint16_t>(array.bytes);
    case mxINT32_CLASS:
        return converted<std::int32_t>(array.bytes);
    default:
        return converted<std::uint32_t>(array.bytes);
    }
}

std::string listing(const mxArray& array) {
    std::ostringstream text;
    text << "struct";
    for (size_t i = 0; i < array.fields.size(); ++i) {
        const mxArray& value = array.fields[i];
        text << "\n  " << array.fieldNames[i] << " = ";
        if (value.data.size() == 1)
            text << value.data.front();
        else
            text << summary(value);
    }
    return text.str();
}

} // namespace

bool holdsNumbers(const mxArray& array) {
    return array.classID != mxCHAR_CLASS && array.classID != mxSTRUCT_CLASS && array.classID != mxCELL_CLASS;
}

mxArray withDoubles(mxArray array) {
    const bool isConverted = holdsNumbers(array) && array.classID != mxDOUBLE_CLASS;
    if (isConverted) return {array.rows, array.columns, elementsOf(array)};
    return array;
}

std::string summary(const mxArray& array) {
    if (array.classID == mxCHAR_CLASS) return '"' + array.bytes + '"';
    if (array.classID == mxSTRUCT_CLASS) return listing(array);
    if (array.classID == mxCELL_CLASS)
        return std::to_string(array.rows) + " x " + std::to_string(array.columns) + " cell array";
    double least = std::numeric_limits<double>::infinity();
    double greatest = -least;
    double sum = 0;
    size_t count = 0;
    for (const double value : array.data) {
        if (std::isnan(value)) continue;
        least = std::min(least, value);
        greatest = std::max(greatest, value);
        sum += value;
        ++count;
    }
    std::ostringstream text;
    text << array.rows << " x " << array.columns;
    if (count > 0)
        text << ", min " << least << ", max " << greatest << ", mean " << sum / static_cast<double>(count);
    if (array.data.empty()) text << ", empty";
    if (count < array.data.size()) text << ", " << array.data.size() - count << " not a number";
    return text.str();
}

std::string shortest(double value) {
    char number[32]; // the longest takes 24 characters
    return {number, std::to_chars(number, number + sizeof number, value).ptr};
}

void writeCsv(const std::string& path, const mxArray& array) {
    if (!holdsNumbers(array)) throw std::runtime_error(path + ": a table holds numbers, the output has none");
    std::ofstream file(path);
    for (size_t row = 0; row < array.rows; ++row) {
        for (size_t column = 0; column < array.columns; ++column) {
            if (column > 0) file << ',';
            file << shortest(array.data[column * array.rows + row]);
        }
        file << '\n';
    }
    if (!file.flush()) throw std::runtime_error(path + ": cannot be written");
}
