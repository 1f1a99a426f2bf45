#include "support/console.hpp"

#include <algorithm>
#include <cctype>

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
    const auto isDigit = [](unsigned char c) { return std::isdigit(c) != 0; };
    for (std::size_t word = message.find("line"); word != std::string::npos;
         word = message.find("line", word + 1)) {
        if (word + 5 >= message.size()) break;
        const auto first =
            message.begin() + static_cast<std::ptrdiff_t>(word) + 5; // behind "line " or "line="
        const auto last = std::find_if_not(first, message.end(), isDigit);
        if (first != last) message.replace(first - 1, last, " N");
    }
    return message;
}
