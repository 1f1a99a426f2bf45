#include "utility/string/case.hpp"

#include <algorithm>
#include <cstring>

namespace {

char upperCase(char c) {
    return static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
}

char lowerCase(char c) {
    return static_cast<char>(c >= 'A' && c <= 'Z' ? c + 32 : c);
}

} // namespace

void stringToUpperCase(std::string& text) {
    std::transform(text.begin(), text.end(), text.begin(), upperCase);
}

void stringToLowerCase(std::string& text) {
    std::transform(text.begin(), text.end(), text.begin(), lowerCase);
}

void str2Lower(const char* source, char*& destination) {
    const std::size_t size = std::strlen(source) + 1;
    char* copy = new char[size];
    std::transform(source, source + size, copy, lowerCase);
    destination = copy;
}
