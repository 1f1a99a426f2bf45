// Upper and lower case of the letters A to Z, the same in every locale; every other byte is left alone.
#pragma once

#include <string>

/// Change a text in place.
void stringToUpperCase(std::string& text);
void stringToLowerCase(std::string& text);

/// Makes a lower-case copy.
///
/// @param destination  receives a new array, which the caller releases with delete[].
void str2Lower(const char* source, char*& destination);
