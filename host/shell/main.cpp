// wavepitch: the library's functions at the shell, for one recording or a corpus. A border: reads the command
// line, calls the module's functions, writes what they hand back. Computes nothing itself.

#include "options.hpp"
#include "progress.hpp"

#include "arrays.hpp"

#include <cstdio>
#include <stdexcept>

namespace {

using namespace shell;

constexpr int usageStatus = 2;

/// Negative numbers, and lists that begin with one, are inputs, not options. A leading blank, which number
/// readers skip, tells them apart.
std::vector<std::string> wordsToParse(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    for (std::string& word : words) {
        if (word == "--") break;
        if (word.starts_with('-') && word != "-0" && isNumber(word.substr(0, word.find(','))))
            word.insert(0, " ");
    }
    std::reverse(words.begin(), words.end()); // the parser takes the last first
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

int run(CLI::App& app, Options& options) {
    const auto chosen = app.get_subcommands();
    if (chosen.empty()) {
        showOverview();
        return 0;
    }
    if (chosen.front()->get_name() == "help") {
        if (options.topic.empty())
            showOverview();
        else
            showHelp(function(options.topic));
        return 0;
    }
    const Function& called = function(chosen.front()->get_name());
    const Request request = requestOf(called, options);
    return work(request, jobsOf(options.words, options.places), options.course);
}

} // namespace

int main(int argc, char** argv) try {
    CLI::App app("Pitch, end points and spectra of recordings.", "wavepitch");
    app.set_version_flag("--version", WAVEPITCH_VERSION);
    Options options;
    declare(app, options);
    if (const std::string first = argc > 1 ? argv[1] : "help"; first != "help" && !first.starts_with('-'))
        function(first); // tells a name that is none
    try {
        app.parse(wordsToParse(argc, argv));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : usageStatus;
    }
    return run(app, options);
} catch (const std::exception& error) {
    std::fflush(stdout);
    std::fprintf(stderr, "wavepitch: %s\n", shell::inOneLine(error.what()).c_str());
    return 1;
}
