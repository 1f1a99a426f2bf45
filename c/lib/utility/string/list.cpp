#include "utility/string/list.hpp"

#include "utility/file/lines.hpp"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <utility>

#include "mex.h"

void strVecJoin(const std::vector<std::string>& list, const char* separator, std::string& result) {
    std::string joined;
    for (std::size_t i = 0; i < list.size(); ++i) joined.append(i > 0 ? separator : "").append(list[i]);
    result = std::move(joined);
}

void intVecJoin(const std::vector<int>& list, const char* separator, std::string& result) {
    std::vector<std::string> texts;
    std::transform(list.begin(), list.end(), std::back_inserter(texts),
                   [](int i) { return std::to_string(i); });
    strVecJoin(texts, separator, result);
}

void strVecRemoveEmptyElement(std::vector<std::string>& list) {
    std::erase_if(list, [](const std::string& element) { return element.empty(); });
}

void strVecPrint(const std::vector<std::string>& list, const char* name, const char* path) {
    if (path && *path != '\0') return fileWrite(path, list);
    if (list.empty()) mexPrintf("%s has zero element!\n", name);
    for (std::size_t i = 0; i < list.size(); ++i)
        std::cout << name << "[" << std::to_string(i) << "] = " << list[i] << std::endl;
}
