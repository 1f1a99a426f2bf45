#include "arguments.hpp"

#include "utility/rounding.hpp"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>

namespace {

bool sameName(const std::string& a, const std::string& b) {
    return upperCase(a) == upperCase(b);
}

/// The shortest of the usual forms: 8000, 0.5, 1e+09.
std::string textOf(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.15g", value);
    return text;
}

/// The text of a row of characters; false for anything else.
bool readText(const mxArray* array, std::string& text) {
    if (mxGetClassID(array) != mxCHAR_CLASS || mxGetNumberOfDimensions(array) > 2 || mxGetM(array) > 1)
        return false;
    const size_t length = mxGetM(array) * mxGetN(array);
    std::vector<char> buffer(length + 1);
    if (length >= static_cast<size_t>(mostInt)) return false;
    if (length > 0 && mxGetString(array, buffer.data(), static_cast<int>(length + 1)) != 0) return false;
    text = buffer.data();
    return text.size() == length; // a text that holds a terminator is none
}

template <typename Names>
std::string listed(const Names& names) {
    std::string list;
    for (const auto& name : names) list += (list.empty() ? "" : ", ") + std::string(name);
    return list;
}

template <typename T>
double elementAs(const mxArray* array, size_t index) {
    return static_cast<double>(static_cast<const T*>(mxGetData(array))[index]);
}

} // namespace

std::string upperCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

void refuse(const std::string& command, const std::string& rule) {
    mexErrMsgTxt((command + ": " + rule).c_str());
}

void Argument::refuse(const std::string& rule) const {
    ::refuse(command, name + " must be " + rule);
}

bool Argument::isFloating() const {
    return classID() == mxDOUBLE_CLASS || classID() == mxSINGLE_CLASS;
}

bool Argument::isSigned() const {
    return classID() == mxINT8_CLASS || classID() == mxINT16_CLASS || classID() == mxINT32_CLASS;
}

int Argument::bits() const {
    switch (classID()) {
    case mxINT8_CLASS:
    case mxUINT8_CLASS:
        return 8;
    case mxINT16_CLASS:
    case mxUINT16_CLASS:
        return 16;
    case mxINT32_CLASS:
    case mxUINT32_CLASS:
        return 32;
    default:
        return 0;
    }
}

/// Logical values and integers of 64 bits, which doubles do not hold, are no numbers here.
bool Argument::isNumeric() const {
    return (isFloating() || bits() > 0) && !mxIsComplex(array) && !mxIsSparse(array) &&
           mxGetNumberOfDimensions(array) == 2;
}

/// The value of a numeric scalar; not-a-number for anything else.
double Argument::scalar() const {
    return isNumeric() && rows() == 1 && columns() == 1 ? element(0)
                                                        : std::numeric_limits<double>::quiet_NaN();
}

double Argument::element(size_t index) const {
    switch (classID()) {
    case mxSINGLE_CLASS:
        return elementAs<float>(array, index);
    case mxINT8_CLASS:
        return elementAs<std::int8_t>(array, index);
    case mxUINT8_CLASS:
        return elementAs<std::uint8_t>(array, index);
    case mxINT16_CLASS:
        return elementAs<std::int16_t>(array, index);
    case mxUINT16_CLASS:
        return elementAs<std::uint16_t>(array, index);
    case mxINT32_CLASS:
        return elementAs<std::int32_t>(array, index);
    case mxUINT32_CLASS:
        return elementAs<std::uint32_t>(array, index);
    default:
        return mxGetPr(array)[index];
    }
}

double Argument::number(double least, double most) const {
    const double value = scalar();
    if (!(value >= least && value <= most)) refuse("a number from " + textOf(least) + " to " + textOf(most));
    return value;
}

double Argument::positive() const {
    const double value = scalar();
    if (!(value > 0 && std::isfinite(value))) refuse("a positive number");
    return value;
}

int Argument::whole(int least, int most) const {
    const double value = scalar();
    if (value >= least && value <= most && value == std::floor(value)) return static_cast<int>(value);
    if (least == 1 && most == mostInt) refuse("a positive whole number");
    if (least == -mostInt && most == mostInt) refuse("a whole number");
    if (most == mostInt) refuse("a whole number of at least " + textOf(least));
    refuse("a whole number from " + textOf(least) + " to " + textOf(most));
}

int Argument::bitDepth() const {
    const double nbits = scalar();
    if (nbits != 8 && nbits != 16) refuse("8 or 16");
    return static_cast<int>(nbits);
}

bool Argument::flag() const {
    const bool isLogical =
        classID() == mxLOGICAL_CLASS && !mxIsSparse(array) && rows() == 1 && columns() == 1;
    const double value = isLogical ? mxGetScalar(array) : scalar();
    if (value != 0 && value != 1) refuse("true or false");
    return value == 1;
}

int Argument::choice(std::initializer_list<Choice> choices, bool numbersToo) const {
    std::string given;
    const bool isText = readText(array, given);
    const double value = numbersToo ? scalar() : std::numeric_limits<double>::quiet_NaN();
    std::string names;
    for (const auto& [choiceName, code] : choices) {
        if ((isText && sameName(given, choiceName)) || value == code) return code;
        names += std::string(names.empty() ? "" : ", ") + '"' + choiceName + '"';
        if (numbersToo) names += " (" + std::to_string(code) + ")";
    }
    refuse("one of " + names);
}

std::string Argument::text() const {
    std::string result;
    if (!readText(array, result) || result.empty()) refuse("a row of characters");
    return result;
}

std::string Argument::file() const {
    std::string path = text();
    if (!std::ifstream(path)) refuse("the name of a file that can be read, \"" + path + "\" cannot");
    return path;
}

/// All elements, column after column; the rule is reported where one is not finite.
std::vector<double> Argument::finiteElements(const std::string& rule) const {
    const size_t count = rows() * columns();
    if (count == 0 || count > static_cast<size_t>(mostInt)) refuse(rule);
    std::vector<double> values(count);
    if (classID() == mxDOUBLE_CLASS)
        std::copy(mxGetPr(array), mxGetPr(array) + count, values.begin());
    else
        for (size_t i = 0; i < count; ++i) values[i] = element(i);
    if (!std::all_of(values.begin(), values.end(), [](double x) { return std::isfinite(x); })) refuse(rule);
    return values;
}

std::vector<double> Argument::vector() const {
    constexpr const char* rule = "a real vector of finite numbers, not empty";
    if (!isNumeric() || (rows() != 1 && columns() != 1)) refuse(rule);
    return finiteElements(rule);
}

std::vector<double> Argument::numbers() const {
    constexpr const char* rule = "a real matrix of finite numbers, not empty";
    if (!isNumeric()) refuse(rule);
    return finiteElements(rule);
}

void Argument::requireSampleClass() const {
    if (!isFloating() && !isSigned() && classID() != mxUINT8_CLASS)
        refuse("of class double, single, int8, uint8, int16 or int32");
}

std::vector<int> Argument::samples(int nbits) const {
    const std::vector<double> wave = vector();
    const int fullScale = truncateToInt(std::ldexp(1.0, nbits - 1));
    std::vector<int> result(wave.size());
    if (isFloating()) {
        for (size_t i = 0; i < wave.size(); ++i) {
            if (std::fabs(wave[i]) > 1)
                refuse("samples from -1 to 1, or of an integer class: sample " + std::to_string(i + 1) +
                       " is " + textOf(wave[i]));
            result[i] = std::min(myRound(wave[i] * fullScale), fullScale - 1);
        }
        return result;
    }
    requireSampleClass();
    const double offset = isSigned() ? 0 : 128;
    const double scale = std::exp2(nbits - bits());
    for (size_t i = 0; i < wave.size(); ++i) result[i] = truncateToInt((wave[i] - offset) * scale);
    return result;
}

std::vector<double> Argument::unitSamples() const {
    std::vector<double> wave = vector();
    if (isFloating()) return wave;
    requireSampleClass();
    const double offset = isSigned() ? 0 : 128;
    for (double& sample : wave) sample = (sample - offset) / std::exp2(bits() - 1);
    return wave;
}

std::vector<int> Argument::ownSamples(int nbits) const {
    return samples(isFloating() ? nbits : bits());
}

Options::Options(const char* ofCommand, const std::vector<const char*>& names, const mxArray* const* first,
                 int count)
    : command(ofCommand) {
    for (int i = 0; i < count; i += 2) {
        std::string given;
        if (!readText(first[i], given))
            refuse(command, "an option's NAME is wanted, one of " + listed(names));
        const auto known =
            std::find_if(names.begin(), names.end(), [&](const char* name) { return sameName(given, name); });
        if (known == names.end())
            refuse(command, "no option is named \"" + given + "\"; there are " + listed(names));
        if (i + 1 == count) refuse(command, upperCase(*known) + " must be followed by its value");
        pairs.emplace_back(*known, first[i + 1]);
    }
}

const mxArray* Options::find(const char* name) const {
    const auto pair = std::find_if(pairs.rbegin(), pairs.rend(),
                                   [&](const auto& candidate) { return sameName(candidate.first, name); });
    return pair == pairs.rend() ? nullptr : pair->second;
}

Argument Options::operator[](const char* name) const {
    return {command, upperCase(name), find(name)};
}
