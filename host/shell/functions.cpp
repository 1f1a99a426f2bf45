#include "functions.hpp"

#include "library/command.hpp"
#include "texts.hpp"

#include <algorithm>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace shell {

namespace {

/// Outputs that are no curves. The first output of a function is never the axis of another, and behind a
/// curve there is a number for each of its values.
const std::vector<Output> namedForms = {{"time", Form::time, ""},
                                        {"segments", Form::segments, ""},
                                        {"pfMat", Form::matrix, "lag"},
                                        {"correlation", Form::matrix, "lag"},
                                        {"frames", Form::matrix, "sample"},
                                        {"magnitude", Form::matrix, "frequency"},
                                        {"lag", Form::axis, ""},
                                        {"frequency", Form::axis, ""},
                                        {"threshold", Form::list, ""},
                                        {"distances", Form::list, ""},
                                        {"shifts", Form::list, ""},
                                        {"param", Form::record, ""},
                                        {"details", Form::details, ""},
                                        {"silent", Form::number, ""},
                                        {"code", Form::number, ""},
                                        {"meaning", Form::number, ""},
                                        {"first", Form::number, ""},
                                        {"distance", Form::number, ""},
                                        {"position", Form::number, ""},
                                        {"shift", Form::number, ""},
                                        {"ratio", Form::number, ""},
                                        {"out", Form::sound, ""},
                                        {"wave", Form::sound, ""}};

Output outputOf(const std::string& name, bool isFirst) {
    const auto named = std::find_if(namedForms.begin(), namedForms.end(),
                                    [&](const Output& output) { return output.name == name; });
    if (named == namedForms.end() || (isFirst && named->form == Form::axis)) return {name, Form::curve, ""};
    return *named;
}

std::vector<std::string> words(const std::string& text) {
    static const std::regex word("\\w+");
    return {std::sregex_token_iterator(text.begin(), text.end(), word), std::sregex_token_iterator()};
}

/// The first comment of a function's file, without the signs of a comment.
std::string helpOf(const std::string& name) {
    const auto text = std::find_if(helpTexts.begin(), helpTexts.end(),
                                   [&](const HelpText& candidate) { return candidate.function == name; });
    if (text == helpTexts.end()) return "";
    std::istringstream lines(text->comment);
    std::string help;
    for (std::string line; std::getline(lines, line);)
        help += line.substr(line.starts_with("% ") ? 2 : line.starts_with('%') ? 1 : 0) + '\n';
    return help;
}

/// The first line, without the name that it begins with.
std::string summaryOf(const std::string& help, const std::string& name) {
    const std::string line = help.substr(0, help.find('\n'));
    return line.size() > name.size() ? line.substr(line.find_first_not_of(' ', name.size())) : line;
}

Function functionOf(const Command& command, const std::string& room) {
    const std::string usage = command.usage;
    const size_t equals = usage.find('=');
    Function result{command.name, room, "", helpOf(command.name), {}, false, {}};
    result.summary = summaryOf(result.help, result.name);
    result.inputs = words(usage.substr(usage.find('(')));
    result.options = result.takes("value");
    if (result.options) result.inputs.resize(result.inputs.size() - 2);
    for (const std::string& name : words(usage.substr(0, equals))) {
        Output output = outputOf(name, result.outputs.empty());
        const bool isOfEach = !result.outputs.empty() && result.outputs.front().form == Form::curve;
        if (isOfEach && output.form == Form::number) output.form = Form::curve;
        result.outputs.push_back(output);
    }
    return result;
}

std::vector<Function> functionsOfIndex() {
    const auto table = commands();
    std::vector<Function> result;
    std::istringstream index(packageIndex);
    std::string line;
    std::string room;
    std::getline(index, line); // the title
    while (std::getline(index, line)) {
        if (!line.starts_with(' ')) {
            room = line;
            continue;
        }
        const auto command = std::find_if(table.begin(), table.end(),
                                          [&](const Command& c) { return line.substr(1) == c.name; });
        if (command != table.end()) result.push_back(functionOf(*command, room));
    }
    return result;
}

} // namespace

bool Function::takes(const std::string& input) const {
    return std::find(inputs.begin(), inputs.end(), input) != inputs.end();
}

bool Function::isRate(const std::string& input) const {
    return takesRecording() && (input == "fs" || input == "oldFs");
}

int Function::find(Form form) const {
    const auto found = std::find_if(outputs.begin(), outputs.end(),
                                    [=](const Output& output) { return output.form == form; });
    return found == outputs.end() ? -1 : static_cast<int>(found - outputs.begin());
}

int Function::find(const std::string& output) const {
    const auto found = std::find_if(outputs.begin(), outputs.end(),
                                    [&](const Output& candidate) { return candidate.name == output; });
    return found == outputs.end() ? -1 : static_cast<int>(found - outputs.begin());
}

const std::vector<Function>& functions() {
    static const std::vector<Function> all = functionsOfIndex();
    return all;
}

const Function& function(const std::string& name) {
    const auto& all = functions();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const Function& candidate) { return candidate.name == name; });
    if (found == all.end())
        throw std::runtime_error("no function is named \"" + name + "\"; wavepitch alone lists them");
    return *found;
}

} // namespace shell
