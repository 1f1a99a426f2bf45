// wavepitch: the library's functions at the shell, for one recording or a corpus. A border: reads the command
// line, calls the module's functions, writes what they hand back. Computes nothing itself.

#include "options.hpp"
#include "progress.hpp"

#include "arrays.hpp"

#include <cstdio>
#include <stdexcept>

namespace {

using namespace shell;

/// Negative numbers, and lists that begin with one, are inputs, not options. A leading blank, which number
/// readers skip, tells them apart.
std::vector<std::string> wordsToParse(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    for (std::string& word : words) {
        if (word == "--") break;
        if (word.starts_with('-') && word != "-0" && isNumber(word.substr(0, word.find(','))))
            word.insert(word.begin(), ' ');
    }
    return words;
}

void showOverview() {
    std::printf("wavepitch FUNCTION [OPTION...] RECORDING... [NAME=VALUE...]\n\n%s\n"
                "wavepitch help FUNCTION tells how it is called.\n",
                overview().c_str());
}

/// What the package tells of a function, below how the shell calls it.
void showHelp(const Function& told) {
    std::printf("wavepitch %s [OPTION...] %s\n\n%s\nOptions: wavepitch %s --help\n", told.name.c_str(),
                told.takesRecording() ? "RECORDING... [NAME=VALUE...]" : "INPUT... [NAME=VALUE...]",
                told.help.c_str(), told.name.c_str());
}

int run(const std::string& chosen, Options& options) {
    if (chosen.empty() || (chosen == "help" && options.topic.empty())) {
        showOverview();
        return 0;
    }
    if (chosen == "help") {
        showHelp(function(options.topic));
        return 0;
    }
    const Request request = requestOf(function(chosen), options);
    return work(request, jobsOf(options.words, options.places), options.course);
}

} // namespace

int main(int argc, char** argv) try {
    Options options;
    CommandLine line(WAVEPITCH_VERSION, options);
    if (const std::string first = argc > 1 ? argv[1] : "help"; first != "help" && !first.starts_with('-'))
        function(first); // tells a name that is none
    const std::optional<int> status = line.read(wordsToParse(argc, argv));
    return status ? *status : run(line.chosen(), options);
} catch (const std::exception& error) {
    std::fflush(stdout);
    std::fprintf(stderr, "wavepitch: %s\n", shell::inOneLine(error.what()).c_str());
    return 1;
}
