// Replacing parts of a text in place.
#pragma once

#include <string>

/// Replaces every occurrence of a pattern, from the left and without overlap; what a replacement brings in is
/// not searched again. An empty pattern replaces nothing. Pattern and replacement may be the text itself.
void stringReplace(std::string& text, const std::string& pattern, const std::string& replacement);

/// Replaces every character equal to oldChar, up to the terminator. A NUL for newChar ends the text at the
/// first of them.
void strRep(char* text, char oldChar, char newChar);
