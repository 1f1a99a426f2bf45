#include "parameters.hpp"

#include "arrays.hpp"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <stdexcept>
#include <strings.h>

namespace shell {

namespace {

bool sameName(const std::string& a, const std::string& b) {
    return strcasecmp(a.c_str(), b.c_str()) == 0;
}

mxArray scalar(double value) {
    return {1, 1, {value}};
}

/// Numbers between commas; false for anything else.
bool readList(const std::string& text, std::vector<double>& values) {
    std::istringstream parts(text);
    std::string part;
    while (std::getline(parts, part, ',')) {
        if (!isNumber(part)) return false;
        values.push_back(std::strtod(part.c_str(), nullptr));
    }
    return !values.empty() && text.back() != ',';
}

/// Where the file's name ends in FILE and FILE:NAME.
size_t endOfFile(const std::string& place) {
    std::error_code unknown;
    return std::filesystem::exists(place, unknown) ? std::string::npos : place.rfind(':');
}

/// The table in a file, or FILE:NAME, a column of it.
mxArray tableIn(const std::string& place) {
    const size_t end = endOfFile(place);
    if (end == std::string::npos) return readTable(place);
    return readColumn(place.substr(0, end), place.substr(end + 1));
}

bool isFileName(const std::string& input) {
    return sameName(input, "tunes") || sameName(input, "paramFile");
}

mxArray arrayOf(const std::string& value) {
    if (value.starts_with('@')) return tableIn(value.substr(1));
    if (value == "true") return scalar(1);
    if (value == "false") return scalar(0);
    std::vector<double> values;
    if (!readList(value, values)) return characters(value);
    const size_t count = values.size();
    return {1, count, std::move(values)};
}

[[noreturn]] void refuseGap(const Function& function, const std::string& missing, const std::string& given) {
    throw std::runtime_error(function.name + ": " + missing + "=VALUE is wanted before " + given);
}

std::string namesOf(const Function& function) {
    std::string names;
    for (const std::string& input : function.inputs)
        if (input != "wave" && !function.isRate(input)) names += (names.empty() ? "" : ", ") + input;
    return names.empty() ? "none" : names;
}

} // namespace

bool isParameter(const std::string& word) {
    const size_t equals = word.find('=');
    return equals != std::string::npos && isWord(word.substr(0, equals));
}

std::pair<std::string, mxArray> parameter(const std::string& word) {
    const size_t equals = word.find('=');
    return {word.substr(0, equals), arrayOf(word.substr(equals + 1))};
}

std::string fileOf(const std::string& word) {
    const size_t equals = word.find('=');
    const std::string value = word.substr(equals + 1);
    if (value.starts_with('@')) return value.substr(1, endOfFile(value.substr(1)));
    return isFileName(word.substr(0, equals)) ? value : "";
}

const mxArray* find(const Parameters& parameters, const std::string& name) {
    const auto found = std::find_if(parameters.rbegin(), parameters.rend(),
                                    [&](const auto& candidate) { return sameName(candidate.first, name); });
    return found == parameters.rend() ? nullptr : &found->second;
}

std::vector<mxArray> inputsOf(const Function& function, const Parameters& parameters, mxArray wave,
                              double rate) {
    std::vector<mxArray> result = {characters(function.name)};
    std::string missing;
    for (const std::string& input : function.inputs) {
        const mxArray* given = find(parameters, input);
        const bool isRecordings = function.takesRecording() && (input == "wave" || function.isRate(input));
        if (isRecordings && given)
            throw std::runtime_error(function.name + ": " + input + " comes from the recording");
        if (given && !missing.empty()) refuseGap(function, missing, input);
        if (isRecordings)
            result.push_back(input == "wave" ? std::exchange(wave, {}) : scalar(rate));
        else if (given)
            result.push_back(*given);
        else if (missing.empty())
            missing = input;
    }
    for (const auto& [name, value] : parameters) {
        const auto isThis = [&, &itsName = name](const std::string& input) {
            return sameName(input, itsName);
        };
        if (std::any_of(function.inputs.begin(), function.inputs.end(), isThis)) continue;
        if (!function.options)
            throw std::runtime_error(function.name + ": nothing is named \"" + name + "\"; there are " +
                                     namesOf(function));
        if (!missing.empty()) refuseGap(function, missing, name);
        result.push_back(characters(name));
        result.push_back(value);
    }
    return result;
}

mxArray& waveOf(const Function& function, std::vector<mxArray>& inputs) {
    const auto wave = std::find(function.inputs.begin(), function.inputs.end(), "wave");
    return inputs.at(static_cast<size_t>(wave - function.inputs.begin()) + 1);
}

} // namespace shell
