// What a test sees of the host console and of the fatal paths.
#pragma once

#include <string>

/// Collects what mexPrintf prints while it lives; one at a time.
class ConsoleCapture {
public:
    ConsoleCapture();
    ~ConsoleCapture();
    ConsoleCapture(const ConsoleCapture&) = delete;
    ConsoleCapture& operator=(const ConsoleCapture&) = delete;

    const std::string& text() const;
};

/// The message of fatal path A that the call leaves by, with the source line number replaced by "N"; empty if
/// it returns. Console output of the path is swallowed.
template <typename Call>
std::string fatalMessage(Call call);

/// The same for path C, the host's error function.
template <typename Call>
std::string hostError(Call call);

/// "(line 123 of" becomes "(line N of": messages carry line numbers that tests do not pin.
std::string withoutLineNumber(std::string message);

#include "standIn.hpp"

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

template <typename Call>
std::string hostError(Call call) {
    try {
        call();
    } catch (const standIn::HostError& error) {
        return error.what();
    }
    return "";
}
