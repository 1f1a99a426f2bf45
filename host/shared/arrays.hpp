// The input arrays of a module, read from what stands on the command line.
#pragma once

#include <string>
#include <vector>

#include "standIn.hpp"

struct Input {
    mxArray array;
    double rate = 0; // Hz, of an audio file; 0 of anything else
};

/// Whether all of the text is a number, infinities and not-a-number included.
bool isNumber(const std::string& text);

/// Whether a text is letters, digits and _, a letter first.
bool isWord(const std::string& text);

/// A matrix from its rows, one after the other.
mxArray fromRows(const std::vector<double>& values, size_t rows, size_t columns);

/// A row of characters.
mxArray characters(const std::string& text);

/// A table of doubles from a file: a line is a row, numbers stand between commas, semicolons or blanks, empty
/// lines are skipped. What is none is a std::runtime_error with the line.
mxArray readTable(const std::string& path);

/// A column of such a file below a first line of names, which stand between commas or tabs. A name that is
/// not there is a std::runtime_error, too.
mxArray readColumn(const std::string& path, const std::string& name);

/// The array that an argument stands for:
///   a number                    a scalar;
///   'text' in single quotes     a row of characters;
///   a word                      the same, where no file has this name: letters, digits and _, a letter
///   first; a file ending in .csv/.txt  the table that readTable reads;
///   any other file              audio of any format that libsndfile reads: samples x channels, full scale
///                               -1 to 1, as the host's audioread gives it.
/// What is none of these and names no file, and a file that cannot be read, is a std::runtime_error that
/// names it and the rule it breaks.
Input readInput(const std::string& text);
