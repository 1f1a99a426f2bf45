#include "arrays.hpp"

#include "audio.hpp"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace {

const char* skipBlanks(const char* text) {
    while (std::isspace(static_cast<unsigned char>(*text))) ++text;
    return text;
}

/// Appends the numbers of one line; false if something else stands there.
bool readRow(const std::string& line, std::vector<double>& values) {
    const char* text = skipBlanks(line.c_str());
    bool separated = false; // a separator calls for one more number
    while (*text || separated) {
        char* end = nullptr;
        values.push_back(std::strtod(text, &end));
        if (end == text) return false;
        text = skipBlanks(end);
        separated = *text == ',' || *text == ';';
        if (separated)
            text = skipBlanks(text + 1);
        else if (*text && text == end)
            return false; // a number runs into something else
    }
    return text == line.c_str() + line.size();
}

[[noreturn]] void refuseLine(const std::string& path, size_t number, const std::string& rule) {
    throw std::runtime_error(path + ", line " + std::to_string(number) + ": " + rule);
}

/// The rows below the first lines of a file.
mxArray readRows(std::istream& file, const std::string& path, size_t linesBefore) {
    std::vector<double> values;
    std::string line;
    size_t rows = 0;
    size_t columns = 0;
    for (size_t number = linesBefore + 1; std::getline(file, line); ++number) {
        const size_t before = values.size();
        if (!readRow(line, values))
            refuseLine(path, number, "numbers between commas, semicolons or blanks wanted");
        const size_t count = values.size() - before;
        if (count == 0) continue;
        if (rows > 0 && count != columns)
            refuseLine(path, number,
                       std::to_string(count) + " numbers, the lines above have " + std::to_string(columns));
        columns = count;
        ++rows;
    }
    if (file.bad()) throw std::runtime_error(path + ": cannot be read");
    return fromRows(values, rows, columns);
}

std::ifstream opened(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + ": cannot be opened");
    return file;
}

bool isQuoted(const std::string& text) {
    return text.size() >= 2 && text.front() == '\'' && text.back() == '\'';
}

} // namespace

mxArray characters(const std::string& text) {
    return {text.empty() ? 0U : 1U, text.size(), {}, mxCHAR_CLASS, text};
}

mxArray fromRows(const std::vector<double>& values, size_t rows, size_t columns) {
    mxArray array{rows, columns, std::vector<double>(values.size())};
    for (size_t row = 0; row < rows; ++row)
        for (size_t column = 0; column < columns; ++column)
            array.data[column * rows + row] = values[row * columns + column];
    return array;
}

mxArray readTable(const std::string& path) {
    std::ifstream file = opened(path);
    return readRows(file, path, 0);
}

mxArray readColumn(const std::string& path, const std::string& name) {
    std::ifstream file = opened(path);
    std::string line;
    std::getline(file, line);
    if (line.ends_with('\r')) line.pop_back();
    std::replace(line.begin(), line.end(), '\t', ',');
    std::istringstream names(line);
    std::vector<std::string> columns;
    for (std::string column; std::getline(names, column, ',');) columns.push_back(column);
    const auto found = std::find(columns.begin(), columns.end(), name);
    if (found == columns.end())
        throw std::runtime_error(path + ": no column is named \"" + name + "\"; its first line is " + line);
    const mxArray table = readRows(file, path, 1);
    const auto column = static_cast<size_t>(found - columns.begin());
    if (table.rows > 0 && column >= table.columns) refuseLine(path, 2, "fewer numbers than names");
    const auto first = table.data.begin() + static_cast<std::ptrdiff_t>(column * table.rows);
    return {table.rows, 1, {first, first + static_cast<std::ptrdiff_t>(table.rows)}};
}

bool isWord(const std::string& text) {
    return !text.empty() && std::isalpha(static_cast<unsigned char>(text.front())) != 0 &&
           std::all_of(text.begin(), text.end(),
                       [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; });
}

bool isNumber(const std::string& text) {
    char* end = nullptr;
    std::strtod(text.c_str(), &end);
    return !text.empty() && end == text.c_str() + text.size();
}

Input readInput(const std::string& text) {
    if (isNumber(text)) return {{1, 1, {std::strtod(text.c_str(), nullptr)}}};
    if (isQuoted(text)) return {characters(text.substr(1, text.size() - 2))};
    if (!std::filesystem::exists(text)) {
        if (isWord(text)) return {characters(text)};
        throw std::runtime_error("cannot open " + text + ": no such file");
    }
    const std::string extension = std::filesystem::path(text).extension();
    if (extension == ".csv" || extension == ".txt") return {readTable(text)};
    try {
        Recording recording = readRecording(text);
        return {std::move(recording.samples), recording.rate};
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(text + ": not a number, not a table (.csv, .txt), " + error.what());
    }
}
