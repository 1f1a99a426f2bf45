#include "support/console.hpp"

#include <regex>

namespace {

std::string captured;
standIn::Console before = nullptr;

} // namespace

ConsoleCapture::ConsoleCapture() {
    captured.clear();
    before = standIn::setConsole([](std::string_view text) { captured += text; });
}

ConsoleCapture::~ConsoleCapture() {
    standIn::setConsole(before);
}

const std::string& ConsoleCapture::text() const {
    return captured;
}

std::string withoutLineNumber(std::string message) {
    return std::regex_replace(message, std::regex("line[ =][0-9]+"), "line N");
}
