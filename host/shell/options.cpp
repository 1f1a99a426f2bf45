#include "options.hpp"

#include "drawing.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <stdexcept>
#include <thread>

namespace shell {

namespace {

constexpr int usageStatus = 2;

void declareFormats(CLI::App& app, Options& options) {
    const std::pair<const char*, Format> formats[] = {{"--tsv", Format::tsv},
                                                      {"--json", Format::json},
                                                      {"--columns", Format::columns},
                                                      {"--labels", Format::labels},
                                                      {"--wav", Format::wav}};
    const char* const texts[] = {"a table with tabs instead of commas",
                                 "an object with an array for each column, or a single value, one a line",
                                 "time and value between blanks, a frame a line, without names",
                                 "segments as a label track: start and end in seconds, number, between tabs",
                                 "sound, as WAV of 32-bit floating point"};
    auto* group =
        app.add_option_group("Form of results", "without: CSV, a line of names, times in the first column");
    for (size_t i = 0; i < std::size(formats); ++i)
        group->add_flag_callback(
            formats[i].first, [&options, format = formats[i].second] { options.format = format; }, texts[i]);
    group->require_option(0, 1);
}

void declareAudio(CLI::App& app, Options& options) {
    app.add_option("--channel", options.channel, "the channel to take, from 1")
        ->check(CLI::Range(1, 1024))
        ->type_name("N");
    app.add_flag("--mix", options.mix, "the mean of all channels")->excludes("--channel");
    app.add_option(
           "--raw", options.raw,
           "files without a header: Hz, and s8, u8, s16, s24, s32, f32, f64, ulaw or alaw, lowest byte "
           "first; those with one are read by it")
        ->type_name("RATE:FORMAT");
    app.add_flag("-r,--recursive", options.places.recursive, "folders stand for the recordings in them");
    app.add_flag("-0,--null", options.places.endsWithZero,
                 "names on standard input (-) end with a zero byte");
}

void declareFiles(CLI::App& app, Options& options) {
    app.add_option("-o,--output", options.places.file, "results to FILE instead of standard output")
        ->type_name("FILE");
    app.add_option("--png", options.places.picture,
                   "draw what one recording gives to FILE; - is standard output")
        ->type_name("FILE");
}

void declareCorpus(CLI::App& app, Options& options) {
    app.add_option("--out-dir", options.places.folder,
                   "results of each recording to a file of its own in DIR, under the recording's path")
        ->type_name("DIR")
        ->excludes("--output");
    app.add_flag("--pictures", options.places.pictures, "a PNG picture beside each file in DIR")
        ->needs("--out-dir");
    app.add_flag("--resume", options.course.resume,
                 "leave out recordings whose files in DIR are there and newer")
        ->needs("--out-dir");
    app.add_option("-j,--jobs", options.course.sideBySide,
                   "recordings side by side; default the number of cores. The bar on a terminal takes pv")
        ->check(CLI::Range(1, 4096))
        ->type_name("N");
}

/// The output that the user names, the segments for label tracks, else the first.
int outputOf(const Function& function, const Options& options) {
    const int output = !options.output.empty()            ? function.find(options.output)
                       : options.format == Format::labels ? function.find(Form::segments)
                                                          : 0;
    if (output >= 0) return output;
    std::string names;
    for (const Output& its : function.outputs) names += (names.empty() ? "" : ", ") + its.name;
    throw std::runtime_error(function.name + ": no output is named \"" +
                             (options.output.empty() ? "segments" : options.output) + "\"; there are " +
                             names);
}

void requireFit(const Function& function, int output, Format format) {
    const Form form = function.outputs[static_cast<size_t>(output)].form;
    const std::string name = function.name + ": " + function.outputs[static_cast<size_t>(output)].name;
    if (format == Format::labels && form != Form::segments)
        throw std::runtime_error(name + " is no list of segments for --labels");
    if (format == Format::wav && form != Form::sound)
        throw std::runtime_error(name + " is no sound for --wav");
    if (format == Format::columns && (form != Form::curve || function.find(Form::time) < 0))
        throw std::runtime_error(name + " has no times for --columns");
}

void requirePlaces(const Options& options, size_t recordings) {
    const bool many = recordings > 1 || options.places.recursive ||
                      std::find(options.words.begin(), options.words.end(), "-") != options.words.end();
    const bool toOneFile = !options.places.file.empty() || !options.places.picture.empty();
    if (many && toOneFile)
        throw std::runtime_error("-o and --png are for one recording; --out-dir and --pictures for several");
    const bool withNames =
        options.format == Format::csv || options.format == Format::tsv || options.format == Format::json;
    if (many && !withNames && options.places.folder.empty())
        throw std::runtime_error("several recordings in this form want --out-dir");
    const bool toFile = !options.places.file.empty() || !options.places.folder.empty();
    if (options.format == Format::wav && !toFile)
        throw std::runtime_error("--wav wants a file, as -o gives it");
    if (options.places.picture == standardOutput && !toFile)
        throw std::runtime_error("a picture on standard output wants a file for the table, as -o gives it");
}

/// The first input that is not given; "" where all are.
std::string nextInput(const Function& function, const Parameters& given) {
    const auto isMissing = [&](const std::string& input) { return !find(given, input); };
    const auto missing = std::find_if(function.inputs.begin(), function.inputs.end(), isMissing);
    return missing == function.inputs.end() ? "" : *missing;
}

void declare(CLI::App& app, Options& options) {
    options.course.sideBySide = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
    app.require_subcommand(0, 1);
    for (const Function& function : functions()) {
        CLI::App* sub = app.add_subcommand(function.name, function.summary)->group(function.room);
        sub->add_option(
            "WORD", options.words,
            function.takesRecording()
                ? "recordings, folders (-r), - for names on standard input; NAME=VALUE for the function"
                : "the function's inputs in their order, or NAME=VALUE");
        sub->add_option("--show", options.output,
                        "the output to show, instead of the first and what goes with it")
            ->type_name("NAME");
        declareFormats(*sub, options);
        if (function.takesRecording()) declareAudio(*sub, options);
        declareFiles(*sub, options);
        if (function.takesRecording()) declareCorpus(*sub, options);
    }
    app.add_subcommand("help", "How a function is called")
        ->group("Help")
        ->add_option("FUNCTION", options.topic, "one of the functions");
}

bool isOutput(const std::string& file) {
    return file == "-" || file == standardOutput;
}

/// What follows an option, without the check that the parser adds to its name.
std::string argumentOf(const CLI::Option& option) {
    if (option.get_items_expected_max() == 0) return "";
    const std::string name = option.get_type_name();
    return name.substr(0, name.find(":INT"));
}

/// The options of a subcommand, behind them those of its groups, which have no name.
void collect(const CLI::App& app, std::vector<OptionText>& texts) {
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_positional() || (app.get_name().empty() && option == app.get_help_ptr())) continue;
        texts.push_back({option->get_name(false, true), argumentOf(*option), option->get_description(),
                         option->get_lnames()});
    }
    for (const CLI::App* group : app.get_subcommands({}))
        if (group->get_name().empty()) collect(*group, texts);
}

} // namespace

CommandLine::CommandLine(const char* version, Options& options)
    : app(std::make_unique<CLI::App>("Pitch, end points and spectra of recordings.", "wavepitch")) {
    app->set_version_flag("--version", version);
    declare(*app, options);
}

CommandLine::~CommandLine() = default;

std::optional<int> CommandLine::read(std::vector<std::string> words) {
    std::reverse(words.begin(), words.end()); // the parser takes the last first
    try {
        app->parse(std::move(words));
    } catch (const CLI::ParseError& error) {
        return app->exit(error) == 0 ? 0 : usageStatus;
    }
    return std::nullopt;
}

std::string CommandLine::chosen() const {
    const auto subcommands = app->get_subcommands();
    return subcommands.empty() ? "" : subcommands.front()->get_name();
}

std::vector<OptionText> CommandLine::optionsOf(const std::string& function) const {
    std::vector<OptionText> texts;
    collect(*app->get_subcommand(function), texts);
    return texts;
}

std::string overview() {
    std::string text;
    std::string room;
    for (const Function& function : functions()) {
        if (function.room != room) text += (room.empty() ? "" : "\n") + function.room + '\n';
        room = function.room;
        text += "  " + function.name + std::string(18 - std::min<size_t>(16, function.name.size()), ' ') +
                function.summary + '\n';
    }
    return text;
}

Request requestOf(const Function& function, Options& options) {
    Request request;
    request.function = &function;
    std::vector<std::string> recordings;
    const auto add = [&](const std::string& word) {
        request.parameters.push_back(parameter(word));
        if (std::string file = fileOf(word); !file.empty()) options.places.inputs.push_back(file);
    };
    for (const std::string& word : options.words) {
        if (isParameter(word))
            add(word);
        else if (function.takesRecording())
            recordings.push_back(word);
        else if (std::string input = nextInput(function, request.parameters); !input.empty())
            add(input.append("=").append(word));
        else
            throw std::runtime_error(function.name + ": \"" + word + "\" is one input too many");
    }
    options.words = recordings;
    if (function.takesRecording() && recordings.empty())
        throw std::runtime_error(function.name + ": a recording is wanted; wavepitch help " + function.name +
                                 " tells more");
    if (isOutput(options.places.file)) options.places.file.clear();
    if (isOutput(options.places.picture)) options.places.picture = standardOutput;
    requirePlaces(options, recordings.size());
    request.output = outputOf(function, options);
    requireFit(function, request.output, options.format);
    const bool draws = options.places.pictures || !options.places.picture.empty();
    request.count = draws ? countToDraw(function, request.output) : countFor(function, request.output);
    request.format = options.format;
    request.channel = options.channel;
    request.mix = options.mix;
    if (!options.raw.empty()) request.raw = rawFormat(options.raw);
    options.places.raw = request.raw.rate > 0;
    options.places.extension = extensionOf(request.format);
    return request;
}

} // namespace shell
