// Writes what goes with the command, from the command's own options and the package's help:
//   wavepitchPages VERSION MANUAL COMPLETION
// the man page (roff) and the completion for bash.

#include "options.hpp"

#include <cstdio>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace {

using namespace shell;

/// A text as roff takes it: no escapes, no requests.
std::string roff(const std::string& text) {
    std::string result;
    bool lineBegins = true;
    for (const char c : text) {
        if (lineBegins && (c == '.' || c == '\'')) result += "\\&";
        if (c == '\\')
            result += "\\e";
        else if (c == '-')
            result += "\\-";
        else
            result += c;
        lineBegins = c == '\n';
    }
    return result;
}

constexpr const char* manualBegin = R"(.SH NAME
wavepitch \- pitch, end points and spectra of recordings
.SH SYNOPSIS
.B wavepitch
.I FUNCTION
.RI [ OPTION ...]
.IR RECORDING ...
.RI [ NAME=VALUE ...]
.br
.B wavepitch help
.RI [ FUNCTION ]
.SH DESCRIPTION
Calls a function of the library for each recording and writes what it finds as a table: a line of names, and
the times in the first column. The sample rate comes from the recording. What a function takes besides is given as
.IR NAME=VALUE ,
with the names of its inputs and options in any case; a value is a number, numbers between commas, true or false,
a word, or
.I @FILE
for a table of numbers, or
.I @FILE:NAME
for a column of one with a line of names, as the command writes them. A recording whose own name has this form, or
begins with a dash, is written with its folder (./a=b.wav, ./\-a.wav). Functions
that take no recording take their inputs in order.
.PP
Several recordings are analysed side by side, each in a process of its own; their order and number change no
result. On a terminal the program pv draws a bar, where it is installed. One that cannot be read, or that the function refuses, is named on standard error with its reason, and the
others go on. Every file is written under another name and gets its own when it is whole.
.SH OPTIONS
)";

constexpr const char* manualEnd = R"(.SH EXIT STATUS
0 where all is done, 1 where something is refused, 2 where the options are not understood.
.SH EXAMPLES
.nf
wavepitch wave2f0 speech.wav
wavepitch endPoints speech.wav method=volumeHod \-\-labels \-o speech.txt
wavepitch wave2f0 \-r corpus \-\-out\-dir f0 \-\-resume minF0=75
.fi
)";

std::string optionsText(const std::vector<OptionText>& options) {
    std::string text;
    for (const OptionText& option : options) {
        text += ".TP\n.B " + roff(option.name);
        if (!option.argument.empty()) text.append(" ").append(roff(option.argument));
        text += '\n' + roff(option.text) + '\n';
    }
    return text;
}

std::string manual(const std::vector<OptionText>& options, const std::string& version) {
    std::string text = ".TH WAVEPITCH 1 \"\" \"wavepitch " + version + "\"\n" + manualBegin;
    text += optionsText(options);
    text += ".SH FUNCTIONS\n.nf\n" + roff(overview()) + ".fi\n";
    for (const Function& function : functions())
        text += ".SS " + function.name + "\n.nf\n" + roff(function.help) + ".fi\n";
    return text + manualEnd;
}

std::string namesOf(const std::vector<OptionText>& options) {
    std::string names;
    for (const OptionText& option : options)
        for (const std::string& name : option.longNames) names += " --" + name;
    return names;
}

/// NAME= for each that a line of the help's section on options begins with; a sentence there begins with a
/// capital.
std::string optionsOf(const Function& function) {
    static const std::regex names("  ([a-z]\\w*(, \\w+)*) .*");
    static const std::regex name("(\\w+),? ?");
    std::istringstream help(function.help);
    std::string text;
    bool isInside = false;
    for (std::string line; std::getline(help, line);) {
        if (!line.starts_with(' ')) isInside = line.starts_with("Options");
        std::smatch found;
        if (isInside && std::regex_match(line, found, names))
            text += std::regex_replace(found[1].str(), name, "$1= ");
    }
    return text;
}

std::string completion(const std::vector<OptionText>& options) {
    std::string text = "# Completion of the command wavepitch for bash.\n_wavepitch() {\n"
                       "    local word=${COMP_WORDS[COMP_CWORD]} functions=\"help";
    for (const Function& function : functions()) text += ' ' + function.name;
    text +=
        "\" inputs=\n    if ((COMP_CWORD == 1)) || [[ ${COMP_WORDS[1]} == help ]]; then\n"
        "        mapfile -t COMPREPLY < <(compgen -W \"$functions\" -- \"$word\")\n        return\n    fi\n"
        "    if [[ $word == -* ]]; then\n        mapfile -t COMPREPLY < <(compgen -W \"" +
        namesOf(options) + "\" -- \"$word\")\n        return\n    fi\n    case ${COMP_WORDS[1]} in\n";
    for (const Function& function : functions()) {
        text += "    " + function.name + ") inputs=\"";
        for (const std::string& input : function.inputs)
            if (input != "wave" && !function.isRate(input)) text += input + "= ";
        if (function.options) text += optionsOf(function);
        text += "\" ;;\n";
    }
    return text +
           "    esac\n    compopt -o filenames\n"
           "    mapfile -t COMPREPLY < <(compgen -f -- \"$word\"; compgen -W \"$inputs\" -- \"$word\")\n"
           "    [[ ${COMPREPLY[*]} != *= ]] || compopt -o nospace\n"
           "}\ncomplete -F _wavepitch wavepitch\n";
}

void writeText(const std::string& path, const std::string& text) {
    std::ofstream file(path);
    file << text;
    if (!file.flush()) throw std::runtime_error(path + ": cannot be written");
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 4) throw std::runtime_error("usage: wavepitchPages VERSION MANUAL COMPLETION");
    Options options;
    const auto texts = CommandLine(argv[1], options).optionsOf("wave2f0");
    writeText(argv[2], manual(texts, argv[1]));
    writeText(argv[3], completion(texts));
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
