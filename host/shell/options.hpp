// The command line.
#pragma once

#include "corpus.hpp"
#include "jobs.hpp"

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace shell {

struct Options {
    std::vector<std::string> words; // recordings and NAME=VALUE
    std::string output;
    Format format = Format::csv;
    int channel = 0;
    bool mix = false;
    std::string raw;
    Places places;
    Course course;
    std::string topic; // of help
};

/// Declares a subcommand for each function, and help.
void declare(CLI::App& app, Options& options);

/// The list of functions by room.
std::string overview();

/// The request that the words and options make of a function; a std::runtime_error where they contradict each
/// other. What is left in words are recordings.
Request requestOf(const Function& function, Options& options);

} // namespace shell
