// The module by its command table: arrays of all classes and shapes, and lists of options, through the
// stand-in host. The target knows no command: what a call takes, usage and refusals tell.
#include "gateway/library/command.hpp"
#include "support/check.hpp"
#include "support/folder.hpp"
#include "support/sound.hpp"
#include "support/target.hpp"

#include <cstring>
#include <map>

namespace {

using Names = std::vector<std::string>;

mxArray textArray(const std::string& text) {
    return {1, text.size(), {}, mxCHAR_CLASS, text};
}

mxArray doubles(const Exact<double>& values, bool isRow) {
    const std::size_t n = values.size();
    return {isRow ? 1 : n, isRow ? n : 1, values.copy()};
}

mxArray number(double value) {
    return {1, 1, {value}};
}

std::size_t elementSize(mxClassID classID) {
    switch (classID) {
    case mxINT8_CLASS:
    case mxUINT8_CLASS:
    case mxLOGICAL_CLASS:
    case mxCHAR_CLASS:
        return 1;
    case mxINT16_CLASS:
    case mxUINT16_CLASS:
        return 2;
    case mxSINGLE_CLASS:
    case mxINT32_CLASS:
    case mxUINT32_CLASS:
        return 4;
    default:
        return 8;
    }
}

/// Of any class and shape, with any content.
mxArray anyArray(Bytes& bytes) {
    const auto classID = static_cast<mxClassID>(bytes.below(mxFUNCTION_CLASS + 1));
    const auto rows = static_cast<std::size_t>(bytes.flag() ? bytes.below(4) : bytes.length(0, 300));
    const auto columns = static_cast<std::size_t>(bytes.flag() ? 1 : bytes.below(5));
    mxArray array{rows, columns, {}, classID};
    const int count = static_cast<int>(rows * columns);
    if (classID == mxDOUBLE_CLASS)
        array.data = exactDoubles(bytes, count).copy();
    else if (classID != mxSTRUCT_CLASS)
        array.bytes = bytes.text(count * static_cast<int>(elementSize(classID)));
    return array;
}

/// In the class of a recording that comes from a file.
template <typename Sample>
mxArray recordingAs(const Exact<double>& wave, mxClassID classID, double scale, bool isRow) {
    mxArray array = doubles(wave, isRow);
    array.data.clear();
    array.classID = classID;
    std::vector<Sample> samples;
    for (const double x : wave) samples.push_back(static_cast<Sample>(std::abs(x) <= 1 ? x * scale : 0.0));
    array.bytes.assign(reinterpret_cast<const char*>(samples.data()), samples.size() * sizeof(Sample));
    return array;
}

mxArray recording(Bytes& bytes) {
    const Exact<double> wave = sound(bytes, bytes.length(1, 1500), 1);
    const bool isRow = bytes.flag();
    switch (bytes.below(7)) {
    case 0:
        return recordingAs<float>(wave, mxSINGLE_CLASS, 1, isRow);
    case 1:
        return recordingAs<std::int8_t>(wave, mxINT8_CLASS, 127, isRow);
    case 2:
        return recordingAs<std::int16_t>(wave, mxINT16_CLASS, 32767, isRow);
    case 3:
        return recordingAs<std::int32_t>(wave, mxINT32_CLASS, 2147483647, isRow);
    default:
        return doubles(wave, isRow);
    }
}

/// Small ones and those far beyond what there is room for; in between calls would take long.
double someNumber(Bytes& bytes) {
    const double few[] = {0,  1,   2,          0.5,        8000,  16000,    44100,
                          -1, 1e9, 2147483647, 2147483648, 1e300, HUGE_VAL, std::nan("")};
    switch (bytes.below(4)) {
    case 0:
        return bytes.below(8);
    case 1:
        return bytes.from(-2, 300);
    case 2:
        return bytes.below(1000) / 100.0;
    default:
        return few[bytes.below(static_cast<int>(std::size(few)))];
    }
}

std::string parameterFile(Bytes& bytes) {
    const char* const keys[] = {"fs",     "frameSize", "overlap",  "pfLen",
                                "pfType", "minPitch",  "maxVolTh", "minVolTh"};
    std::string text;
    for (int i = bytes.below(5); i > 0; --i)
        text += keys[bytes.below(static_cast<int>(std::size(keys)))] +
                ("=" + std::to_string(bytes.from(-2, 300))) + "\n";
    return written("parameters", text);
}

/// What an input of this name may well be.
mxArray inputNamed(Bytes& bytes, const std::string& name, const Names& words) {
    if (bytes.below(16) == 0) return anyArray(bytes);
    if (name == "wave") return recording(bytes);
    if (name == "fs") return number(bytes.oneOf({8000, 16000, 11025, 44100, 500}));
    if (name.ends_with("File")) return textArray(parameterFile(bytes));
    if (!words.empty() && bytes.below(4) == 0)
        return textArray(words[size_t(bytes.below(int(words.size())))]);
    if (bytes.below(3) > 0) return number(someNumber(bytes));
    Exact<double> list(bytes.length(1, 40));
    for (double& x : list) x = bytes.flag() ? bytes.below(90) : bytes.below(100) / 10.0;
    return doubles(list, bytes.flag());
}

/// The call's refusal; empty where it returns.
std::string refusalOf(int outputs, const std::vector<mxArray>& inputs) {
    try {
        const auto results = standIn::call(mexFunction, outputs, inputs);
        for (int i = 0; i < outputs; ++i) {
            const mxArray* const result = results[size_t(i)].get();
            require(result, "an output that was asked for");
            require(result->classID != mxDOUBLE_CLASS ||
                        result->data.size() == result->rows * result->columns,
                    "as many elements as there are rows and columns");
        }
    } catch (const standIn::HostError& error) {
        return error.what();
    }
    return "";
}

/// The names between brackets of a usage, or in quotes or behind "there are" in a refusal.
Names namesIn(const std::string& text, const std::string& begin, const std::string& separators) {
    Names names;
    const std::size_t start = text.find(begin);
    if (start == std::string::npos) return names;
    std::size_t at = start + begin.size();
    while ((at = text.find_first_not_of(separators, at)) != std::string::npos) {
        const std::size_t end = std::min(text.find_first_of(separators, at), text.size());
        names.push_back(text.substr(at, end - at));
        at = end;
    }
    return names;
}

/// What the module tells of a command.
struct Told {
    Names inputs;  // those before the options
    Names options; // without those of an endpoint that one of the words chooses
    Names words;   // that an input may be
};

Told toldOf(const Command& command) {
    Told told;
    std::string usage = command.usage;
    usage.pop_back();
    told.inputs = namesIn(usage, "(", ", ");
    const auto options = std::find(told.inputs.begin(), told.inputs.end(), "name");
    told.inputs.erase(options, told.inputs.end());
    const mxArray wave = number(0.5);
    const mxArray name = textArray("none of them");
    const auto refusal = [&](const std::vector<mxArray>& arguments) {
        std::vector<mxArray> inputs{textArray(command.name)};
        inputs.insert(inputs.end(), arguments.begin(), arguments.end());
        return refusalOf(1, inputs);
    };
    std::vector<mxArray> arguments(told.inputs.size(), number(8000));
    if (!arguments.empty()) arguments[0] = wave;
    if (arguments.size() > 2) arguments[2] = name;
    for (const std::string& quoted : namesIn(refusal(arguments), "one of ", ", \"()0123456789"))
        told.words.push_back(quoted);
    if (!told.words.empty()) arguments[2] = textArray(told.words[0]);
    arguments.push_back(name);
    told.options = namesIn(refusal(arguments), "there are ", ", ");
    for (const std::string& option : told.options) {
        std::vector<mxArray> pair = arguments;
        pair.back() = textArray(option);
        pair.push_back(name);
        for (const std::string& quoted : namesIn(refusal(pair), "one of ", ", \"()0123456789"))
            told.words.push_back(quoted);
    }
    return told;
}

const Told& toldOnce(const Command& command) {
    static std::map<const Command*, Told> all;
    if (!all.count(&command)) all[&command] = toldOf(command);
    return all[&command];
}

} // namespace

void fuzz(Bytes& bytes) {
    const Command& command = commands()[size_t(bytes.below(static_cast<int>(commands().size())))];
    const Told& told = toldOnce(command);
    std::vector<mxArray> inputs{textArray(command.name)};
    const int mandatory = bytes.below(20) == 0 ? bytes.below(command.leastInputs + 1) : command.leastInputs;
    const int fixed = bytes.flag() ? static_cast<int>(told.inputs.size()) : mandatory;
    for (const std::string& name : told.inputs)
        if (static_cast<int>(inputs.size()) <= fixed) inputs.push_back(inputNamed(bytes, name, told.words));
    for (int i = told.options.empty() ? 0 : bytes.below(4); i > 0; --i) {
        const std::string& option = told.options[size_t(bytes.below(int(told.options.size())))];
        inputs.push_back(textArray(option));
        if (bytes.below(30) > 0) inputs.push_back(inputNamed(bytes, option, told.words));
    }
    if (bytes.below(40) == 0) inputs.push_back(anyArray(bytes));
    if (bytes.below(100) == 0) inputs[0] = anyArray(bytes);
    const int outputs = bytes.flag() ? command.mostOutputs : bytes.from(0, command.mostOutputs + 1);
    const std::string refusal = refusalOf(outputs, inputs);
    const bool isNamed =
        refusal.empty() || inputs[0].bytes != command.name || refusal.starts_with(command.name);
    require(isNamed, "a refusal with the command's name: " + refusal);
}
