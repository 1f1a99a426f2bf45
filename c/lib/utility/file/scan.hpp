// Reading numbers off a text stream one by one; shared by the lists and the tables.
#pragma once

#include <cstdio>

/// Reads the next number and the white space before it, as fscanf does with "%d", "%f" and "%lf": an integer
/// beyond the range of int gives its nearest end, a floating value beyond its range infinity.
///
/// @return  whether there was a number; if not, value is unchanged, and the stream stands at the character
///          that is part of none (behind a sign that no digit follows).
bool scanNumber(std::FILE* file, int& value);
bool scanNumber(std::FILE* file, float& value);
bool scanNumber(std::FILE* file, double& value);
