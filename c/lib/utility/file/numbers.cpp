#include "utility/file/numbers.hpp"

#include "utility/classicLocale.hpp"
#include "utility/fatal.hpp"
#include "utility/file/file.hpp"
#include "utility/fileHandle.hpp"
#include "utility/rounding.hpp"
#include "utility/string/blank.hpp"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <locale>
#include <string_view>

namespace {

using wavepitch::utility::ClassicLocale;

/// Reads the next number and the white space before it, as fscanf does with "%d", "%f" and "%lf". False if
/// there is none: value is unchanged, and the stream stands at the character that is part of no number
/// (behind a sign that no digit follows).
///
/// fscanf leaves an integer beyond the range of its type undefined, so that digits are gathered here.
bool scanNumber(std::FILE* file, int& value) {
    constexpr std::int64_t limit = std::int64_t{1} << 31;
    int c = std::getc(file);
    while (c != EOF && isWhiteSpace(static_cast<char>(c))) c = std::getc(file);
    const bool negative = c == '-';
    if (c == '-' || c == '+') c = std::getc(file);
    std::int64_t magnitude = -1;
    for (; c >= '0' && c <= '9'; c = std::getc(file))
        magnitude = std::min(std::max<std::int64_t>(magnitude, 0) * 10 + (c - '0'), limit);
    std::ungetc(c, file);
    if (magnitude < 0) return false;
    value = clampToInt(negative ? -magnitude : magnitude);
    return true;
}

bool scanNumber(std::FILE* file, float& value) {
    return std::fscanf(file, "%f", &value) == 1;
}

bool scanNumber(std::FILE* file, double& value) {
    return std::fscanf(file, "%lf", &value) == 1;
}

template <typename T>
void readNumbers(const char* path, std::vector<T>& values) {
    const ClassicLocale locale;
    const FileHandle file(openFile(path, "r"));
    values.clear();
    for (T value{}; scanNumber(file.get(), value);) values.push_back(value);
}

} // namespace

void fileWrite(const char* path, double value) {
    const FileHandle file(openFile(path, "w"));
    const ClassicLocale locale;
    std::fprintf(file.get(), "%g\n", value);
}

void fileWrite(const char* path, float value) {
    fileWrite(path, static_cast<double>(value));
}

void logVar(double value, const char* path) {
    const FileHandle file(openFile(path, "a"));
    const ClassicLocale locale;
    std::fprintf(file.get(), "%f\n", value);
}

void logVar(float value, const char* path) {
    logVar(static_cast<double>(value), path);
}

void logVar(int value, const char* path) {
    const FileHandle file(openFile(path, "a"));
    std::fprintf(file.get(), "%d\n", value);
}

void fileWrite(const char* path, const std::vector<int>& values) {
    const FileHandle file(openFile(path, "w"));
    for (const int value : values) std::fprintf(file.get(), "%d\n", value);
}

void fileRead(const char* path, std::vector<int>& values) {
    readNumbers(path, values);
}

void fileRead(const char* path, std::vector<float>& values) {
    readNumbers(path, values);
}

void fileRead(const char* path, std::vector<double>& values) {
    readNumbers(path, values);
}

template <typename T>
void readBinTable(const char* path, T* array, int n) {
    const FileHandle file(openFile(path, "rb"));
    // By way of a buffer: at the end of a short file, fread leaves a part of a value behind.
    std::array<T, 1024> buffer;
    for (std::size_t left = n > 0 ? static_cast<std::size_t>(n) : 0; left > 0;) {
        const std::size_t count =
            std::fread(buffer.data(), sizeof(T), std::min(left, buffer.size()), file.get());
        if (count == 0) break;
        array = std::copy_n(buffer.data(), count, array);
        left -= count;
    }
}

template <typename T>
void readTxtTable(const char* path, T* array, int n) {
    const ClassicLocale locale;
    const FileHandle file(openFile(path, "r"));
    std::FILE* stream = file.get();
    for (int i = 0; i < n && !std::feof(stream) && !std::ferror(stream); ++i) scanNumber(stream, array[i]);
}

template <typename T>
void readTable(const char* path, T* array, int n) {
    const std::string_view extension = path ? getExtName(path) : "";
    if (extension == "bin" || extension == "BIN")
        readBinTable(path, array, n);
    else if (extension == "txt" || extension == "TXT")
        readTxtTable(path, array, n);
    else
        myExitFormatted("Error in reading %s: The only allowed extensions are \"txt\" and \"bin\" "
                        "(line %d of %s)",
                        path ? path : "(null)", __LINE__, utilitySourcePath);
}

template void readBinTable(const char*, double*, int);
template void readBinTable(const char*, float*, int);
template void readBinTable(const char*, int*, int);
template void readTxtTable(const char*, double*, int);
template void readTxtTable(const char*, float*, int);
template void readTxtTable(const char*, int*, int);
template void readTable(const char*, double*, int);
template void readTable(const char*, float*, int);
template void readTable(const char*, int*, int);

std::ofstream wavepitch::utility::openRowFile(const char* path) {
    std::ofstream file;
    file.imbue(std::locale::classic());
    if (path) file.open(path);
    if (!file.is_open()) {
        std::cout << "Error: Cannot open \"" << (path ? path : "(null)") << "\"!" << std::endl;
        std::exit(1);
    }
    return file;
}
