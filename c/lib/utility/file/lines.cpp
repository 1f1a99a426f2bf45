#include "utility/file/lines.hpp"

#include "utility/fatal.hpp"
#include "utility/file/file.hpp"
#include "utility/fileHandle.hpp"
#include "utility/rounding.hpp"
#include "utility/string/blank.hpp"
#include "utility/string/token.hpp"

#include <cstring>
#include <utility>

#include "mex.h"

namespace {

constexpr int listBufferSize = 100000;
constexpr int lineBufferSize = 999;
constexpr int countBufferSize = 1000;

std::string trimmed(std::string text) {
    stringTrimLeadingTrailingBlank(text);
    return text;
}

} // namespace

void fileRead(const char* path, std::vector<std::string>& lines, char comment) {
    const FileHandle file(openFile(path, "r"));
    std::vector<char> buffer(listBufferSize);
    char* piece = buffer.data();
    std::vector<std::string> kept; // apart from the old lines, which may hold the path that the warning shows
    while (std::fgets(piece, listBufferSize, file.get())) {
        std::size_t length = std::strlen(piece);
        if (length == listBufferSize - 1)
            mexPrintf("Warning: Array is likely too small for reading string from %s!!! "
                      "(line %d of file %s)\n",
                      path, __LINE__, utilitySourcePath);
        if (length > 0 && piece[length - 1] == '\n') --length;
        if (length > 0 && piece[0] != comment) kept.emplace_back(piece, length);
    }
    lines = std::move(kept);
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

void keyValuePairRead(const char* fileName, std::vector<std::string>& keys,
                      std::vector<std::string>& values) {
    constexpr char comment = '%';
    std::vector<std::string> lines;
    fileRead(fileName, lines, comment);
    for (const std::string& line : lines) {
        const std::string pair = line.substr(0, line.find(comment));
        const std::size_t equals = pair.find('=');
        if (equals == std::string::npos) continue;
        keys.push_back(trimmed(pair.substr(0, equals)));
        values.push_back(trimmed(pair.substr(equals + 1)));
    }
}

void fileWrite(const char* path, const std::vector<std::string>& values) {
    const FileHandle file(openFile(path, "w"));
    for (const std::string& value : values) std::fprintf(file.get(), "%s\n", value.c_str());
}
