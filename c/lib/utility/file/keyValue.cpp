#include "utility/file/keyValue.hpp"

#include "utility/file/lines.hpp"
#include "utility/string/blank.hpp"

namespace {

std::string trimmed(std::string text) {
    stringTrimLeadingTrailingBlank(text);
    return text;
}

} // namespace

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
