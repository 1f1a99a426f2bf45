#include "utility/file/list.hpp"

#include "utility/file/open.hpp"
#include "utility/file/scan.hpp"
#include "utility/fileHandle.hpp"

namespace {

template <typename T>
void readNumbers(const char* path, std::vector<T>& values) {
    const FileHandle file(openFile(path, "r"));
    values.clear();
    for (T value{}; scanNumber(file.get(), value);) values.push_back(value);
}

} // namespace

void fileWrite(const char* path, const std::vector<int>& values) {
    const FileHandle file(openFile(path, "w"));
    for (const int value : values) std::fprintf(file.get(), "%d\n", value);
}

void fileWrite(const char* path, const std::vector<std::string>& values) {
    const FileHandle file(openFile(path, "w"));
    for (const std::string& value : values) std::fprintf(file.get(), "%s\n", value.c_str());
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
