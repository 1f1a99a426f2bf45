// mexhost: a host for the command line. Loads a module, makes its input arrays from the arguments, calls it,
// and shows what it prints and hands back. Knows nothing of any module.

#include "arrays.hpp"
#include "module.hpp"
#include "output.hpp"
#include "picture.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int usageStatus = 2;

struct Options {
    std::string module;
    std::vector<std::string> arguments;
    int outputCount = 1;
    std::vector<std::string> csv;
    std::string png;
    double rate = 0;
    std::vector<double> frames;
    bool lags = false;
    bool gaps = false;
    int times = 0;
    std::string label = "Value";
};

void declare(CLI::App& app, Options& options) {
    app.add_option("MODULE", options.module, "shared object with a mexFunction")->required();
    app.add_option("ARG", options.arguments,
                   "input: a number, an audio file, a table (.csv, .txt) of numbers, a word or 'text' for "
                   "characters, @rate for the sample rate in Hz of the audio before it");
    app.add_option("--out", options.outputCount, "outputs to ask for")
        ->check(CLI::Range(0, 1000))
        ->capture_default_str();
    app.add_option("--csv", options.csv,
                   "write an output to FILE: the first, given again the second, ..., at most --out of them")
        ->type_name("FILE")
        ->allow_extra_args(false);
    app.add_option("--png", options.png, "draw the waveform and the first output")->type_name("FILE");
    app.add_option("--rate", options.rate, "sample rate in Hz, if no input is an audio file")
        ->check(CLI::PositiveNumber);
    app.add_option("--frames", options.frames, "columns are frames of SIZE samples that share OVERLAP")
        ->type_name("SIZE OVERLAP")
        ->expected(2);
    app.add_option("--times", options.times, "output N holds the columns' times in seconds, evenly spaced")
        ->type_name("N")
        ->check(CLI::PositiveNumber);
    app.add_option("--label", options.label, "what the values of the first output are")
        ->capture_default_str();
    app.add_flag("--gaps", options.gaps, "zeros in a curve are gaps");
    app.add_flag("--lags", options.lags, "rows are lags in samples, from 0");
}

/// Negative numbers are arguments, not options. A leading blank, which number readers skip, tells them apart.
std::vector<std::string> wordsToParse(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    for (std::string& word : words)
        if (word.starts_with('-') && isNumber(word)) word.insert(0, " ");
    std::reverse(words.begin(), words.end()); // the parser takes the last first
    return words;
}

/// The call as the host's user would write it: "wave2pfMat (speech8k.wav, 256, 128, 128, 1, 1)".
std::string callText(const std::string& name, const std::vector<std::string>& arguments) {
    std::string text = name + " (";
    for (const std::string& argument : arguments) {
        if (&argument != &arguments.front()) text += ", ";
        text += isNumber(argument) ? argument.substr(argument.find_first_not_of(' '))
                                   : std::filesystem::path(argument).filename().string();
    }
    return text + ")";
}

/// The input that a picture shows: the first from an audio file, or, if the user gives the rate, the first
/// that is more than a scalar. Sets the rate; null if there is none.
const mxArray* waveToDraw(const std::vector<mxArray>& arrays, const std::vector<double>& rates,
                          double& rate) {
    for (size_t i = 0; i < arrays.size(); ++i) {
        if (rates[i] > 0 || (rate > 0 && arrays[i].data.size() > 1)) {
            if (rates[i] > 0) rate = rates[i];
            return &arrays[i];
        }
    }
    return nullptr;
}

/// Every option that speaks of an output must have one: nothing that the user asks for is left out in
/// silence.
void checkOutputs(const Options& options) {
    const auto outputs = static_cast<size_t>(options.outputCount);
    const std::string asked = ", but " + std::to_string(outputs) + " asked for (--out)";
    if (options.csv.size() > outputs)
        throw std::runtime_error("--csv is for " + std::to_string(options.csv.size()) + " outputs" + asked);
    if (options.times > options.outputCount)
        throw std::runtime_error("--times is for output " + std::to_string(options.times) + asked);
    if (!options.png.empty() && outputs == 0)
        throw std::runtime_error("--png is for the first output" + asked);
}

void run(const Options& options) {
    checkOutputs(options);
    std::vector<mxArray> arrays;
    std::vector<double> rates;
    for (const std::string& argument : options.arguments) {
        const auto audio = std::find_if(rates.rbegin(), rates.rend(), [](double rate) { return rate > 0; });
        const bool isRate = argument == "@rate" && audio != rates.rend();
        Input input = isRate ? Input{{1, 1, {*audio}}} : readInput(argument);
        arrays.push_back(std::move(input.array));
        rates.push_back(input.rate);
    }
    const Module module = loadModule(options.module);
    const auto outputs = callModule(module, options.outputCount, arrays);
    for (const auto& output : outputs)
        if (output) *output = withDoubles(std::move(*output));
    for (size_t i = 0; i < outputs.size(); ++i) {
        if (!outputs[i]) continue;
        std::printf("output %zu: %s\n", i + 1, summary(*outputs[i]).c_str());
        if (i < options.csv.size()) writeCsv(options.csv[i], *outputs[i]);
    }
    if (options.png.empty()) return;
    if (!holdsNumbers(*outputs.front()))
        throw std::runtime_error(options.png + ": there are no numbers to draw");
    Axes axes;
    axes.rate = options.rate;
    axes.lags = options.lags;
    axes.gaps = options.gaps;
    axes.label = options.label;
    axes.frames = !options.frames.empty();
    if (axes.frames) {
        axes.frameSize = options.frames[0];
        axes.overlap = options.frames[1];
    }
    const auto times = static_cast<size_t>(options.times);
    if (times >= 1 && outputs[times - 1]->data.size() > 1) {
        axes.firstTime = outputs[times - 1]->data[0];
        axes.timeStep = outputs[times - 1]->data[1] - axes.firstTime;
    }
    const mxArray* wave = waveToDraw(arrays, rates, axes.rate);
    drawPicture(options.png, callText(module.name, options.arguments), {wave, axes.rate},
                {{std::move(*outputs.front()), axes}});
}

} // namespace

int main(int argc, char** argv) try {
    CLI::App app("Calls a module's mexFunction with arrays made from the arguments.", "mexhost");
    Options options;
    declare(app, options);
    try {
        app.parse(wordsToParse(argc, argv));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : usageStatus;
    }
    run(options);
    return 0;
} catch (const std::exception& error) {
    std::fflush(stdout);
    std::fprintf(stderr, "error: %s\n", error.what());
    return 1;
}
