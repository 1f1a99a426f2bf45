#include "output.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>

std::string summary(const mxArray& array) {
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

void writeCsv(const std::string& path, const mxArray& array) {
    std::ofstream file(path);
    char number[32]; // the longest shortest form takes 24 characters
    for (size_t row = 0; row < array.rows; ++row) {
        for (size_t column = 0; column < array.columns; ++column) {
            if (column > 0) file << ',';
            const auto end =
                std::to_chars(number, number + sizeof number, array.data[column * array.rows + row]).ptr;
            file.write(number, end - number);
        }
        file << '\n';
    }
    if (!file.flush()) throw std::runtime_error(path + ": cannot be written");
}
