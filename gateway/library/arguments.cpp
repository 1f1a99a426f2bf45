#include "arguments.hpp"

#include "utility/string/case.hpp"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <type_traits>

namespace {

bool sameName(const std::string& a, const std::string& b) {
    return upperCase(a) == upperCase(b);
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
    return list.empty() ? "none" : list;
}

/// Calls use with the elements of a numeric array, in their type.
template <typename Use>
auto withElements(const mxArray* array, Use use) {
    const void* elements = mxGetData(array);
    switch (mxGetClassID(array)) {
    case mxSINGLE_CLASS:
        return use(static_cast<const float*>(elements));
    case mxINT8_CLASS:
        return use(static_cast<const std::int8_t*>(elements));
    case mxUINT8_CLASS:
        return use(static_cast<const std::uint8_t*>(elements));
    case mxINT16_CLASS:
        return use(static_cast<const std::int16_t*>(elements));
    case mxUINT16_CLASS:
        return use(static_cast<const std::uint16_t*>(elements));
    case mxINT32_CLASS:
        return use(static_cast<const std::int32_t*>(elements));
    case mxUINT32_CLASS:
        return use(static_cast<const std::uint32_t*>(elements));
    default:
        return use(static_cast<const double*>(elements));
    }
}

// The loops over samples are simple enough to become vector instructions: a minute of speech is read in about
// the time that its memory takes.

/// Whether no value is beyond the limit in magnitude, or not a number. Magnitudes are compared by their bits,
/// which are ordered as they are, with not-a-number above all.
template <std::floating_point T>
bool allWithin(std::span<const T> values, T limit) {
    using Bits = std::conditional_t<sizeof(T) == sizeof(std::uint32_t), std::uint32_t, std::uint64_t>;
    constexpr Bits sign = std::bit_cast<Bits>(-T{0});
    const Bits most = std::bit_cast<Bits>(limit);
    Bits room = 0; // what is left up to the limit; negative for a value beyond
    for (const T x : values) room |= most - (std::bit_cast<Bits>(x) & (sign - 1));
    return (room & sign) == 0;
}

bool allFinite(std::span<const double> values) {
    return allWithin(values, std::numeric_limits<double>::max());
}

/// Samples that are checked and rounded while they are in the cache.
constexpr size_t blockSize = 2048;

/// Samples from -1 to 1, times fullScale, rounded as myRound does and kept below fullScale.
template <typename T, typename Sample>
void roundSamples(std::span<const T> samples, int fullScale, Sample* out) {
    const double most = fullScale - 0.5;
    for (const T sample : samples) {
        const double scaled = static_cast<double>(sample) * fullScale;
        const double rounded = scaled + std::copysign(0.5, scaled);
        *out++ = static_cast<Sample>(rounded < most ? rounded : most);
    }
}

} // namespace

std::string upperCase(std::string text) {
    stringToUpperCase(text);
    return text;
}

std::string textOf(double value) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15).ptr};
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
    if (!isNumeric() || rows() != 1 || columns() != 1) return std::numeric_limits<double>::quiet_NaN();
    return withElements(array, [](const auto* element) { return static_cast<double>(*element); });
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
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(path, unknown) || !std::ifstream(path))
        refuse("the name of a file that can be read, \"" + path + "\" cannot");
    return path;
}

/// All elements, column after column; the rule is reported where there are none or they are not valid.
Numbers Argument::elements(const char* rule, bool (*areValid)(std::span<const double>)) const {
    const size_t count = rows() * columns();
    if (count == 0 || count > static_cast<size_t>(mostInt)) refuse(rule);
    if (classID() == mxDOUBLE_CLASS) {
        const std::span<const double> hosts(mxGetPr(array), count);
        if (!areValid(hosts)) refuse(rule);
        return Numbers(hosts);
    }
    std::vector<double> values = withElements(
        array, [&](const auto* element) { return std::vector<double>(element, element + count); });
    if (!areValid(values)) refuse(rule);
    return Numbers(std::move(values));
}

Numbers Argument::finiteElements(const char* rule) const {
    return elements(rule, allFinite);
}

namespace {

constexpr const char* vectorRule = "a real vector of finite numbers, not empty";

} // namespace

void Argument::requireVector() const {
    if (!isNumeric() || (rows() != 1 && columns() != 1)) refuse(vectorRule);
}

/// The most frequent mistake of all, a recording in stereo, is told how to be mended.
void Argument::requireOneChannel() const {
    if (isNumeric() && rows() > 1 && columns() > 1) {
        const std::string size = std::to_string(rows()) + " x " + std::to_string(columns());
        refuse("a recording of one channel; it has " + std::to_string(std::min(rows(), columns())) + " (" +
               size + "), take one: " + (rows() >= columns() ? "wave(:, 1)" : "wave(1, :)"));
    }
    requireVector();
}

Numbers Argument::recording() const {
    requireOneChannel();
    return finiteElements(vectorRule);
}

Numbers Argument::uncheckedRecording() const {
    requireOneChannel();
    return elements(vectorRule, [](std::span<const double>) { return true; });
}

Numbers Argument::vector() const {
    requireVector();
    return finiteElements(vectorRule);
}

Numbers Argument::contour() const {
    requireVector();
    return elements(
        "a real vector of numbers, none of them infinite, not empty", [](std::span<const double> values) {
            return std::none_of(values.begin(), values.end(), [](double x) { return std::isinf(x); });
        });
}

std::vector<int> Argument::wholes(int least, int most) const {
    const Numbers values = vector();
    const auto isValid = [=](double x) { return x >= least && x <= most && x == std::floor(x); };
    if (!std::all_of(values.begin(), values.end(), isValid))
        refuse("a vector of whole numbers from " + textOf(least) + " to " + textOf(most));
    return {values.begin(), values.end()};
}

std::vector<Argument> Argument::cells() const {
    if (classID() != mxCELL_CLASS || mxGetNumberOfDimensions(array) > 2) refuse("a cell array");
    std::vector<Argument> result;
    const size_t count = rows() * columns();
    if (count > static_cast<size_t>(mostInt)) refuse("a cell array of at most 2147483647 cells");
    for (size_t i = 0; i < count; ++i) {
        const std::string number = '{' + std::to_string(i + 1) + '}';
        const mxArray* cell = mxGetCell(array, static_cast<int>(i));
        if (!cell) refuse("without empty cells; " + name + number + " is one");
        result.emplace_back(command, name + number, cell);
    }
    return result;
}

Numbers Argument::numbers() const {
    constexpr const char* rule = "a real matrix of finite numbers, not empty";
    if (!isNumeric()) refuse(rule);
    return finiteElements(rule);
}

void Argument::requireSampleClass() const {
    if (!isFloating() && !isSigned() && classID() != mxUINT8_CLASS)
        refuse("of class double, single, int8, uint8, int16 or int32");
}

/// Says what is wrong with samples of floating point.
void Argument::refuseSamples() const {
    const Numbers wave = vector();
    const auto* const loud =
        std::find_if(wave.data(), wave.data() + wave.size(), [](double x) { return std::fabs(x) > 1; });
    refuse("samples from -1 to 1, or of an integer class: sample " + std::to_string(loud - wave.data() + 1) +
           " is " + textOf(*loud));
}

template <typename Sample>
std::vector<Sample> Argument::samplesAs(int nbits) const {
    requireSampleClass();
    requireOneChannel();
    const size_t count = rows() * columns();
    if (count == 0) refuse(vectorRule);
    if (count > static_cast<size_t>(mostInt))
        refuse("of at most " + std::to_string(mostInt) + " samples; it has " + std::to_string(count));
    std::vector<Sample> result(count);
    const auto read = [&]<typename T>(const T* sample) {
        if constexpr (std::is_floating_point_v<T>) {
            const int fullScale = static_cast<int>(std::ldexp(1.0, nbits - 1));
            for (size_t at = 0; at < count; at += blockSize) {
                const std::span<const T> block(sample + at, std::min(blockSize, count - at));
                if (!allWithin(block, T{1})) refuseSamples();
                roundSamples(block, fullScale, result.data() + at);
            }
        } else {
            const double offset = std::is_signed_v<T> ? 0 : 128;
            const double scale = std::exp2(nbits - bits());
            for (size_t i = 0; i < count; ++i) result[i] = static_cast<Sample>((sample[i] - offset) * scale);
        }
    };
    withElements(array, read);
    return result;
}

std::vector<int> Argument::samples(int nbits) const {
    return samplesAs<int>(nbits);
}

std::vector<short> Argument::shortSamples(int nbits) const {
    return samplesAs<short>(nbits);
}

Numbers Argument::unitSamples() const {
    if (isFloating()) return recording();
    return Numbers(samplesAs<double>(1)); // full scale is 1
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
