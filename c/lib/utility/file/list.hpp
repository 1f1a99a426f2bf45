// Files of one value per line.
#pragma once

#include <string>
#include <vector>

/// Replaces the file by the elements, each on a line of its own. A NUL byte ends its string. Fatal path A of
/// openFile; write errors are not reported.
void fileWrite(const char* path, const std::vector<int>& values);
void fileWrite(const char* path, const std::vector<std::string>& values);

/// Reads numbers separated by white space up to the first text that is none: "12,3" gives 12.
///
/// @param values  cleared, then filled. Integers beyond the range of int give its nearest end, floating
///                values beyond theirs infinity.
/// Fatal path A of openFile.
void fileRead(const char* path, std::vector<int>& values);
void fileRead(const char* path, std::vector<float>& values);
void fileRead(const char* path, std::vector<double>& values);
