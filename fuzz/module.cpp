// The module by its command table: arrays of all classes and shapes, and lists of options, through the
// stand-in host. The target knows no command: what a call takes, usage and refusals tell.
#include "gateway/library/command.hpp"
#include "support/check.hpp"
#include "support/folder.hpp"
#include "support/sound.hpp"
#include "support/target.hpp"

#include <map>

namespace {

using Names = std::vector<std::string>;

const std::string& oneOf(Bytes& bytes, const Names& names) {
    return names[size_t(bytes.below(static_cast<int>(names.size())))];
}

mxArray textArray(const std::string& text) {
    return {1, text.size(), {}, mxCHAR_CLASS, text};
}

/// @param rows  which the number of values is a multiple of
mxArray doubles(const Exact<double>& values, int rows) {
    return {static_cast<size_t>(rows), values.size() / static_cast<size_t>(rows), values.copy()};
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
    else if (classID == mxCELL_CLASS) // the last ones may never have been set
        for (int i = bytes.below(4); i < count; ++i) array.fields.push_back({1, 2, {60, 0.5}});
    else if (classID != mxSTRUCT_CLASS)
        array.bytes = bytes.text(count * static_cast<int>(elementSize(classID)));
    return array;
}

/// In the class of a recording that comes from a file.
template <typename Sample>
mxArray samplesOf(const mxArray& wave, mxClassID classID, double scale) {
    std::vector<Sample> samples;
    for (const double x : wave.data)
        samples.push_back(static_cast<Sample>(std::abs(x) <= 1 ? x * scale : 0.0));
    mxArray array{wave.rows, wave.columns, {}, classID};
    array.bytes.assign(reinterpret_cast<const char*>(samples.data()), samples.size() * sizeof(Sample));
    return array;
}

mxArray recording(Bytes& bytes) {
    const Exact<double> samples = sound(bytes, bytes.length(1, 1500), 1);
    const mxArray wave = doubles(samples, bytes.flag() ? 1 : samples.length());
    switch (bytes.below(7)) {
    case 0:
        return samplesOf<float>(wave, mxSINGLE_CLASS, 1);
    case 1:
        return samplesOf<std::int8_t>(wave, mxINT8_CLASS, 127);
    case 2:
        return samplesOf<std::int16_t>(wave, mxINT16_CLASS, 32767);
    case 3:
        return samplesOf<std::int32_t>(wave, mxINT32_CLASS, 2147483647);
    default:
        return wave;
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
///
/// @param words       texts that the command knows
/// @param listLength  of a list: lists of one length go together
mxArray inputNamed(Bytes& bytes, const std::string& name, const Names& words, int listLength) {
    if (bytes.below(16) == 0) return anyArray(bytes);
    if (name == "wave") return recording(bytes);
    if (name == "fs" || name.ends_with("Fs")) return number(bytes.oneOf({8000, 16000, 11025, 44100, 500}));
    if (name.ends_with("File")) return textArray(parameterFile(bytes));
    if (!words.empty() && bytes.below(4) == 0) return textArray(oneOf(bytes, words));
    if (bytes.flag()) return number(someNumber(bytes));
    Exact<double> list(listLength);
    for (double& x : list) x = bytes.flag() ? bytes.below(90) : bytes.below(100) / 10.0;
    if (bytes.flag()) list[0] = 1;
    const int rows = bytes.from(1, listLength);
    return doubles(list, listLength % rows == 0 ? rows : 1);
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

/// The names in a text behind a beginning.
Names namesBehind(const std::string& beginning, const std::string& text) {
    Names names;
    const std::size_t start = text.find(beginning);
    if (start == std::string::npos) return names;
    const std::string separators = ", \"()";
    std::size_t at = start + beginning.size();
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
    Names words;   // texts that inputs and values of options may be
    Names options; // with each of the words
};

/// Asks with arguments that are refused.
Told toldOf(const Command& command) {
    Told told;
    told.inputs = namesBehind("(", command.usage);
    told.inputs.erase(std::find(told.inputs.begin(), told.inputs.end(), "name"), told.inputs.end());
    const mxArray unknown = textArray("unknown");
    std::vector<mxArray> call{textArray(command.name)};
    for (const std::string& name : told.inputs) call.push_back(name == "fs" ? number(8000) : number(0.5));
    const auto learn = [&](const std::string& beginning, Names& names) {
        for (const std::string& name : namesBehind(beginning, refusalOf(1, call)))
            if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    };
    learn("one of \"", told.words);
    const Names first = told.words.empty() ? Names{""} : told.words;
    for (const std::string& word : first) {
        if (!word.empty()) call.back() = textArray(word);
        call.push_back(unknown);
        learn("there are ", told.options);
        call.pop_back();
    }
    for (const std::string& option : told.options) {
        call.insert(call.end(), {textArray(option), unknown});
        learn("one of \"", told.words);
        call.resize(call.size() - 2);
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
    const int listLength = bytes.length(1, 40);
    std::vector<mxArray> inputs{textArray(command.name)};
    const auto add = [&](const std::string& name) {
        inputs.push_back(inputNamed(bytes, name, told.words, listLength));
    };
    int inputNum = bytes.flag() ? command.leastInputs : static_cast<int>(told.inputs.size());
    if (bytes.below(20) == 0) inputNum = bytes.below(command.leastInputs + 1);
    for (int i = 0; i < inputNum; ++i) add(told.inputs[size_t(i)]);
    for (int i = told.options.empty() ? 0 : bytes.below(4); i > 0; --i) {
        const std::string& option = oneOf(bytes, told.options);
        inputs.push_back(textArray(option));
        if (bytes.below(30) > 0) add(option);
    }
    if (bytes.below(40) == 0) inputs.push_back(anyArray(bytes));
    if (bytes.below(100) == 0) inputs[0] = anyArray(bytes);
    const int outputs = bytes.flag() ? command.mostOutputs : bytes.from(0, command.mostOutputs + 1);
    const std::string refusal = refusalOf(outputs, inputs);
    const bool isNamed =
        refusal.empty() || inputs[0].bytes != command.name || refusal.starts_with(command.name);
    require(isNamed, "a refusal with the command's name: " + refusal);
}
