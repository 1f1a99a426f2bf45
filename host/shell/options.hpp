// The command line.
#pragma once

#include "corpus.hpp"
#include "jobs.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

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

/// What is told of an option on the man page, and completed.
struct OptionText {
    std::string name;     // all its names, between commas
    std::string argument; // "" for a flag
    std::string text;
    std::vector<std::string> longNames; // without hyphens
};

/// The parser of the command line: a subcommand for each function, and help.
class CommandLine {
public:
    /// Words are read into the options, which must outlive it.
    CommandLine(const char* version, Options& options);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// Reads words, the program's name not among them. Has a status for the program to end with where they
    /// are not understood, or ask for what has been shown then.
    std::optional<int> read(std::vector<std::string> words);
    /// The function that was read, or help; "" for none.
    std::string chosen() const;
    /// The options of a function, in the order of its help.
    std::vector<OptionText> optionsOf(const std::string& function) const;

private:
    std::unique_ptr<CLI::App> app;
};

/// The list of functions by room.
std::string overview();

/// The request that the words and options make of a function; a std::runtime_error where they contradict each
/// other. What is left in words are recordings.
Request requestOf(const Function& function, Options& options);

} // namespace shell
