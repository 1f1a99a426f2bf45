#include "utility/file/lines.hpp"

#include "utility/fatal.hpp"
#include "utility/file/open.hpp"
#include "utility/fileHandle.hpp"
#include "utility/rounding.hpp"
#include "utility/string/token.hpp"

#include <cstring>

#include "mex.h"

namespace {

constexpr int listBufferSize = 100000;
constexpr int lineBufferSize = 999;
constexpr int countBufferSize = 1000;

} // namespace

void fileRead(const char* path, std::vector<std::string>& lines, char comment) {
    const FileHandle file(openFile(path, "r"));
    std::vector<char> buffer(listBufferSize);
    char* piece = buffer.data();
    lines.clear();
    while (std::fgets(piece, listBufferSize, file.get())) {
        std::size_t length = std::strlen(piece);
        if (length == listBufferSize - 1)
            mexPrintf("Warning: Array is likely too small for reading string from %s!!! "
                      "(line %d of file %s)\n",
                      path, __LINE__, utilitySourcePath);
        if (length > 0 && piece[length - 1] == '\n') --length;
        if (length > 0 && piece[0] != comment) lines.emplace_back(piece, length);
    }
}

std::vector<std::vector<std::string>> fileRead(const char* path) {
    std::vector<std::string> lines;
    fileRead(path, lines, '\0');
    std::vector<std::vector<std::string>> table(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) string2token(lines[i], '\t', table[i], 0);
    return table;
}

void getLineInFile(const char* path, int lineNumber, char* buffer) {
    const FileHandle file(openFile(path, "r"));
    int read = 0;
    while (read < lineNumber && std::fgets(buffer, lineBufferSize, file.get())) ++read;
    const std::size_t length = read == lineNumber && read > 0 ? std::strlen(buffer) : 0;
    buffer[length > 0 ? length - 1 : 0] = '\0';
}

int getFileLineCount(const char* path) {
    const FileHandle file(openFile(path, "r"));
    char buffer[countBufferSize];
    std::int64_t count = 0;
    while (std::fgets(buffer, countBufferSize, file.get())) ++count;
    return clampToInt(count);
}
