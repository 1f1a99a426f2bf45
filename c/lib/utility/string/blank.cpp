#include "utility/string/blank.hpp"

#include <algorithm>
#include <cstring>

int isBlank(char c) {
    return c == '\0' || c == '\t' || c == '\n' || c == '\r' || c == ' ';
}

bool isWhiteSpace(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

void cutTrailingBlank(char* text) {
    for (char* end = text + std::strlen(text); end > text && isBlank(end[-1]); --end) end[-1] = '\0';
}

void stringTrimLeadingTrailingBlank(std::string& text) {
    const auto last = std::find_if_not(text.rbegin(), text.rend(), isWhiteSpace).base();
    text.erase(last, text.end());
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isWhiteSpace));
}
