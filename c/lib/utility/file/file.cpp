#include "utility/file/file.hpp"

#include "utility/fatal.hpp"
#include "utility/fileHandle.hpp"
#include "utility/string/replace.hpp"

#include <dirent.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "mex.h"

namespace {

struct BufferDeleter {
    void operator()(char* buffer) const { std::free(buffer); }
};

using ByteBuffer = std::unique_ptr<char, BufferDeleter>;

} // namespace

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

void fileWrite(const char* path, const char* buffer, long size) {
    const FileHandle file(openFile(path, "wb"));
    if (size > 0) std::fwrite(buffer, 1, static_cast<std::size_t>(size), file.get());
}

char* fileRead(const char* path, long& size) {
    const long wanted = getFileSize(path);
    const auto count = static_cast<std::size_t>(wanted);
    ByteBuffer buffer(static_cast<char*>(std::malloc(count > 0 ? count : 1)));
    if (!buffer)
        myExitFormatted("Cannot allocate %ld bytes for file %s in fileRead (line %d of %s)", wanted, path,
                        __LINE__, utilitySourcePath);
    const FileHandle file(openFile(path, "rb"));
    size = static_cast<long>(std::fread(buffer.get(), 1, count, file.get()));
    return buffer.release();
}

void fileRead(const char* path, std::string& content) {
    long size = 0;
    const ByteBuffer buffer(fileRead(path, size));
    content.assign(buffer.get(), std::find(buffer.get(), buffer.get() + size, '\0'));
}

void fileListRecursive(std::vector<std::string>& /*list*/, char* directory, const char* /*pattern*/) {
    strRep(directory, '\\', '/');
    mexPrintf("No files in current directory!\n");
}

int taone(const dirent* entry) {
    if (!entry) return 0;
    const std::string_view name = entry->d_name;
    return name == "." || name == ".." ? 0 : 1;
}
