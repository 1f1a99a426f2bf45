// What a module handed back, as text.
#pragma once

#include <string>

#include "standIn.hpp"

/// Whether an array is a matrix of numbers: neither characters nor a struct.
bool holdsNumbers(const mxArray& array);

/// The array, or a matrix of integers or singles as one of doubles.
mxArray withDoubles(mxArray array);

/// Characters in quotes; a struct's fields, one in a line; of a matrix "128 x 340, min -0.5, max 2.25, mean
/// 0.125"; minimum, maximum and mean over the elements that are numbers, the others are counted.
std::string summary(const mxArray& array);

/// A number in the shortest form that reads back as the same double.
std::string shortest(double value);

/// Writes a line for each row, the numbers between commas, each in its shortest form. A file that cannot be
/// written, or an array without numbers, is a std::runtime_error.
void writeCsv(const std::string& path, const mxArray& array);
