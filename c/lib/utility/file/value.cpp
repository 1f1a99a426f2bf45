#include "utility/file/value.hpp"

#include "utility/file/open.hpp"
#include "utility/fileHandle.hpp"

void fileWrite(const char* path, double value) {
    const FileHandle file(openFile(path, "w"));
    std::fprintf(file.get(), "%g\n", value);
}

void fileWrite(const char* path, float value) {
    fileWrite(path, static_cast<double>(value));
}

void logVar(double value, const char* path) {
    const FileHandle file(openFile(path, "a"));
    std::fprintf(file.get(), "%f\n", value);
}

void logVar(float value, const char* path) {
    logVar(static_cast<double>(value), path);
}

void logVar(int value, const char* path) {
    const FileHandle file(openFile(path, "a"));
    std::fprintf(file.get(), "%d\n", value);
}
