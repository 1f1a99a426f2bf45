// NAME=VALUE: what a user gives a function besides the recording.
#pragma once

#include "functions.hpp"

#include <string>
#include <utility>
#include <vector>

#include "standIn.hpp"

namespace shell {

using Parameters = std::vector<std::pair<std::string, mxArray>>;

/// Whether a word is NAME=VALUE: letters, digits and _ before the sign, a letter first.
bool isParameter(const std::string& word);

/// The name and the array that the value stands for: a number; numbers between commas, as a row; true and
/// false, as 1 and 0; @FILE, the table in a file; @FILE:NAME, a column of a table with a line of names; else
/// characters. An unreadable table is a std::runtime_error.
std::pair<std::string, mxArray> parameter(const std::string& word);

/// The file that such a word has read: of @FILE, or one that the function takes by its name; "" for none.
std::string fileOf(const std::string& word);

/// The value of a parameter by its name in any case, the last of several; null if there is none.
const mxArray* find(const Parameters& parameters, const std::string& name);

/// The module's inputs: the function's name, its inputs in their order, what is left as name-value pairs. A
/// parameter that the function does not take, and an input left out before one that is given, are
/// std::runtime_errors.
///
/// @param wave  the recording as a column, for functions that take one; its rate is the function's.
std::vector<mxArray> inputsOf(const Function& function, const Parameters& parameters, mxArray wave,
                              double rate);

/// The recording among the inputs of a function that takes one.
mxArray& waveOf(const Function& function, std::vector<mxArray>& inputs);

} // namespace shell
