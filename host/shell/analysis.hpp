// One call of a function: its recording, its results, their table and picture.
#pragma once

#include "audio.hpp"
#include "functions.hpp"
#include "parameters.hpp"
#include "table.hpp"

#include <string>

namespace shell {

struct Request {
    const Function* function = nullptr;
    Parameters parameters{};
    int output = 0; // the one to show
    int count = 1;  // outputs that the module is asked for
    Format format = Format::csv;
    int channel = 0; // from 1; 0 where the user has not chosen
    bool mix = false;
    RawFormat raw{};
};

struct Analysis {
    mxArray wave{}; // of one channel; empty for functions that take none
    double rate = 0;
    Outputs outputs{};
    Table table{};
};

/// Reads the recording ("" for a function without), calls the function and makes its table. What cannot be
/// read, what the function refuses and channels without a choice are std::runtime_errors with the reason.
Analysis analyse(const Request& request, const std::string& path);

/// Calls the module for the first outputs of a function; numbers come as doubles. What it refuses is a
/// std::runtime_error.
Outputs outputsOf(const std::vector<mxArray>& inputs, int count);

/// The sample rate of a sound that comes out: the one that the call ends or works with.
double rateOfSound(const Request& request, const Analysis& analysis);

/// The analysis in the form asked for, as the contents of a file. Not for sound.
std::string textOf(const Request& request, const Analysis& analysis, const std::string& file);

/// Writes the shown output as sound.
void writeSound(const Request& request, const Analysis& analysis, const std::string& path);

} // namespace shell
