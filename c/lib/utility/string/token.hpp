// Texts as sequences of fields and words.
#pragma once

#include <string>
#include <vector>

/// Splits a text at a delimiter: k delimiters give k + 1 fields, empty ones included ("a,b,,c," split at ","
/// gives "a", "b", "", "c", ""). The empty text has no field.
///
/// @param tokens  receives the fields; the text may be one of its elements.
/// @param append  0 clears tokens first, anything else appends to them.
void string2token(const std::string& text, char delimiter, std::vector<std::string>& tokens, int append);

/// Number of words, the runs of characters other than white space, up to the first newline.
///
/// @param length  how many characters of the text are looked at, terminators included: not beyond the array's
///                end. Below 1 there are none.
int str2tokenNum(const char* text, int length);
