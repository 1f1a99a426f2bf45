// What the tests of programs see of them.
#pragma once

#include <fstream>
#include <iterator>
#include <string>

struct Result {
    int status;
    std::string out, err;
};

inline std::string contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline bool holds(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}
