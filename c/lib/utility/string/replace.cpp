#include "utility/string/replace.hpp"

#include <utility>

void stringReplace(std::string& text, const std::string& pattern, const std::string& replacement) {
    if (pattern.empty()) return;
    std::string result;
    std::size_t begin = 0;
    for (std::size_t at = text.find(pattern); at != std::string::npos; at = text.find(pattern, begin)) {
        result.append(text, begin, at - begin).append(replacement);
        begin = at + pattern.size();
    }
    result.append(text, begin);
    text = std::move(result);
}

void strRep(char* text, char oldChar, char newChar) {
    while (*text != '\0') {
        if (*text == oldChar) *text = newChar;
        if (*text != '\0') ++text;
    }
}
