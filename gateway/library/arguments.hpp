// The host's arrays, read and checked. Each reader takes what its name says or reports, through the host, the
// command, the argument in capitals and what it must be: "wave2pitch: FS must be a positive whole number".
// Nothing unchecked comes out: numbers are finite, arrays real, full and of two dimensions.
#pragma once

#include <initializer_list>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "mex.h"

inline constexpr int mostInt = std::numeric_limits<int>::max();

/// Reports "COMMAND: RULE" through the host; does not return.
[[noreturn]] void refuse(const std::string& command, const std::string& rule);

/// An argument's name as messages have it.
std::string upperCase(std::string text);

/// A number in the shortest of the usual forms: 8000, 0.5, 1e+09.
std::string textOf(double value);

/// A name of the host's and the number that it stands for.
using Choice = std::pair<const char*, int>;

/// The numbers of an argument: the host's own doubles, which nobody copies, or converted ones.
class Numbers {
public:
    explicit Numbers(std::span<const double> hosts) : values(hosts) {}
    explicit Numbers(std::vector<double> converted) : own(std::move(converted)), values(own) {}
    Numbers(Numbers&&) = default; // own's memory moves with it: values stay where they are
    Numbers(const Numbers&) = delete;
    Numbers& operator=(Numbers&&) = default;
    Numbers& operator=(const Numbers&) = delete;
    ~Numbers() = default;

    const double* data() const { return values.data(); }
    size_t size() const { return values.size(); }
    int length() const { return static_cast<int>(values.size()); }
    auto begin() const { return values.begin(); }
    auto end() const { return values.end(); }
    /// Numbers that may be changed: the converted ones, or a copy of the host's.
    std::vector<double> taken() && {
        return own.empty() ? std::vector<double>(values.begin(), values.end()) : std::move(own);
    }

private:
    std::vector<double> own;
    std::span<const double> values;
};

class Argument {
public:
    Argument(const char* ofCommand, std::string itsName, const mxArray* value)
        : command(ofCommand), name(std::move(itsName)), array(value) {}

    /// Reports "COMMAND: NAME must be RULE" through the host; does not return.
    [[noreturn]] void refuse(const std::string& rule) const;

    /// A scalar of any numeric class.
    double number(double least, double most) const;
    /// A scalar above 0.
    double positive() const;
    /// A whole number.
    int whole(int least, int most = mostInt) const;
    /// Bits that samples are reduced to: 8 or 16.
    int bitDepth() const;
    /// A scalar that is 0 or 1, true or false.
    bool flag() const;
    /// One of the choices, by name in any case, or by number if numbersToo.
    int choice(std::initializer_list<Choice> choices, bool numbersToo = false) const;
    /// A row of characters.
    std::string text() const;
    /// The name of a file that can be read: no directory, no device.
    std::string file() const;
    /// Has such a file read; an exception of the library becomes an error of this argument.
    template <typename Read>
    void readFile(Read read, const char* form = "a file of lines FIELD=VALUE with known fields") const {
        const std::string path = file();
        std::string failure;
        try {
            return read(path.c_str());
        } catch (const char* message) {
            failure = message;
        }
        refuse(form + (": " + failure));
    }

    /// A row or column of numbers, at least one.
    Numbers vector() const;
    /// Numbers of any shape, at least one, column after column.
    Numbers numbers() const;
    /// A row or column of numbers, at least one; not-a-number is one here.
    Numbers contour() const;
    /// A row or column of whole numbers, at least one.
    std::vector<int> wholes(int least, int most) const;
    bool isText() const { return classID() == mxCHAR_CLASS; }
    /// The cells of a cell array, each under the name of the array and its number; may be none.
    std::vector<Argument> cells() const;
    size_t rows() const { return mxGetM(array); }
    size_t columns() const { return mxGetN(array); }

    /// A recording of one channel, which may be a row or a column, in its own scale.
    Numbers recording() const;
    /// The same, with samples that may be infinite or not a number.
    Numbers uncheckedRecording() const;
    /// A recording of one channel as integer samples of 8 or 16 bits. A vector of class double or single
    /// holds samples from -1 to 1, which are multiplied by 2^(nbits - 1), rounded and kept below it; one of
    /// an integer class of B bits, unsigned 8 bits around 128, holds the samples themselves, which are
    /// divided by 2^(B - nbits) and truncated toward zero, or multiplied.
    std::vector<int> samples(int nbits) const;
    /// The same for the operations that take recordings as shorts.
    std::vector<short> shortSamples(int nbits) const;
    /// The integer samples of an integer class in their own scale; of any other class as samples does.
    std::vector<int> ownSamples(int nbits) const;

    /// A recording of one channel for operations on doubles: a floating class as it is, an integer class from
    /// -1 to 1.
    Numbers unitSamples() const;
    /// The bits that samples of this class are best reduced to: 8 for a class of 8 bits, else 16.
    int sampleBits() const { return bits() == 8 ? 8 : 16; }

    mxClassID classID() const { return mxGetClassID(array); }
    bool isFloating() const;
    bool isSigned() const;
    /// Bits of a sample of this class; 0 for floating point.
    int bits() const;

private:
    bool isNumeric() const;
    double scalar() const;
    void requireVector() const;
    void requireOneChannel() const;
    void requireSampleClass() const;
    Numbers finiteElements(const char* rule) const;
    Numbers elements(const char* rule, bool (*areValid)(std::span<const double>)) const;
    template <typename Sample>
    std::vector<Sample> samplesAs(int nbits) const;
    [[noreturn]] void refuseSamples() const;

    const char* command;
    std::string name;
    const mxArray* array;
};

/// Name-value pairs at the end of a call.
class Options {
public:
    Options(const char* ofCommand, const std::vector<const char*>& names, const mxArray* const* first,
            int count);

    bool has(const char* name) const { return find(name) != nullptr; }
    /// A pair's value; of several pairs of one name, the last counts.
    Argument operator[](const char* name) const;

    int whole(const char* name, int otherwise, int least, int most = mostInt) const {
        return has(name) ? (*this)[name].whole(least, most) : otherwise;
    }
    double number(const char* name, double otherwise, double least, double most) const {
        return has(name) ? (*this)[name].number(least, most) : otherwise;
    }
    bool flag(const char* name, bool otherwise) const { return has(name) ? (*this)[name].flag() : otherwise; }

private:
    const mxArray* find(const char* name) const;

    const char* command;
    std::vector<std::pair<const char*, const mxArray*>> pairs;
};
