#include "utility/file/open.hpp"

#include "utility/fatal.hpp"
#include "utility/fileHandle.hpp"

#include <climits>
#include <cstring>

std::FILE* openFile(const char* path, const char* mode) {
    std::FILE* file = path && mode ? std::fopen(path, mode) : nullptr;
    if (!file)
        myExitFormatted("Cannot open file %s (line %d of %s)", path ? path : "(null)", __LINE__,
                        utilitySourcePath);
    return file;
}

int fileExist(const char* path) {
    return path && FileHandle(std::fopen(path, "r")) ? 1 : 0;
}

long getFileSize(std::FILE* file) {
    const long position = std::ftell(file);
    if (position < 0 || std::fseek(file, 0, SEEK_END) != 0) return 0;
    const long size = std::ftell(file);
    std::fseek(file, position, SEEK_SET);
    return size < 0 || size == LONG_MAX ? 0 : size; // LONG_MAX is what a directory answers
}

long getFileSize(const char* path) {
    return getFileSize(FileHandle(openFile(path, "r")).get());
}

const char* getExtName(const char* name) {
    const char* dot = std::strrchr(name, '.');
    return dot ? dot + 1 : name + std::strlen(name);
}

char* getExtName(char* name) {
    return name + (getExtName(static_cast<const char*>(name)) - name);
}
