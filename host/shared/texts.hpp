// The package's texts, which the build takes from the package itself.
#pragma once

#include <vector>

struct HelpText {
    const char* function;
    const char* comment; // lines that begin with %
};

/// Rooms, each a line, and under them the functions' names, indented.
extern const char* const packageIndex;
extern const std::vector<HelpText> helpTexts;
