// What a test sees of the host console and of the fatal paths.
#pragma once

#include "standIn.hpp"

#include <string>

/// Collects what mexPrintf prints while it lives; one at a time.
class ConsoleCapture {
public:
    ConsoleCapture() : before(standIn::setConsole([](std::string_view text) { captured += text; })) {
        captured.clear();
    }
    ~ConsoleCapture() { standIn::setConsole(before); }
    ConsoleCapture(const ConsoleCapture&) = delete;
    ConsoleCapture& operator=(const ConsoleCapture&) = delete;

    const std::string& text() const { return captured; }

private:
    static inline std::string captured;
    standIn::Console before;
};

/// "(line 123 of" becomes "(line N of", and so does "(line=123 of": messages carry line numbers that tests do
/// not pin.
inline std::string withoutLineNumber(std::string message) {
    for (size_t at = message.find("line"); at != std::string::npos; at = message.find("line", at + 4)) {
        const size_t digits = at + 5;
        const size_t end = message.find_first_not_of("0123456789", digits);
        if (digits < message.size() && end != digits) message.replace(at + 4, end - at - 4, " N");
    }
    return message;
}

/// The message of fatal path A that the call leaves by, with the source line number replaced by "N"; empty if
/// it returns. Console output of the path is swallowed.
template <typename Call>
std::string fatalMessage(Call call) {
    const ConsoleCapture console;
    try {
        call();
    } catch (const char* message) {
        return withoutLineNumber(message);
    }
    return "";
}

/// The same for path C, the host's error function.
template <typename Call>
std::string hostError(Call call) {
    try {
        call();
    } catch (const standIn::HostError& error) {
        return error.what();
    }
    return "";
}
