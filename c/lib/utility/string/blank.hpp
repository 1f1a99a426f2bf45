// Blanks and white space: two classes of characters, and the trimming that goes with each. Both are the same
// in every locale.
#pragma once

#include <string>

/// Non-zero for a blank: NUL, tab, newline, carriage return and space. Vertical tab and form feed are none.
int isBlank(char c);

/// White space: space, tab, newline, vertical tab, form feed and carriage return.
bool isWhiteSpace(char c);

/// Overwrites the blanks at the end of a text with NUL, in place.
void cutTrailingBlank(char* text);

/// Removes white space at both ends of a text, in place.
void stringTrimLeadingTrailingBlank(std::string& text);
