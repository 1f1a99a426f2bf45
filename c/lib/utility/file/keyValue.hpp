// Key-value files, the form in which parameters are kept: lines of key=value.
#pragma once

#include <string>
#include <vector>

/// Reads a key-value file. In each line, everything from the first "%" on is a comment; the first "=" divides
/// the rest into key and value, either trimmed of white space (carriage returns included) and possibly empty.
/// A value may contain further "=" but no "%". Lines without "=" are ignored.
///
/// @param keys, values  parallel lists: each pair is appended to their ends, in file order, duplicate keys
///                      included. They are not cleared.
/// Lines are those of the line list (file/lines.hpp) with its limit of 99,999 characters.
/// Fatal path A of openFile.
void keyValuePairRead(const char* fileName, std::vector<std::string>& keys, std::vector<std::string>& values);
