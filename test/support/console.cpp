#include "support/console.hpp"

#include <regex>

std::string withoutLineNumber(const std::string& message) {
    return std::regex_replace(message, std::regex("line[ =]\\d+"), "line N");
}
