// The package's functions as the shell knows them: from the module's command table and the package's help.
#pragma once

#include <string>
#include <vector>

namespace shell {

/// What an output of a function is, told by its name.
enum class Form {
    curve,    // a value for each frame, or for each element of an input
    number,   // a single value or text
    time,     // of the frames, in seconds
    segments, // first and last sample of each
    matrix,   // a column for each frame
    axis,     // of a matrix's rows
    list,     // values of another number than the curves have
    record,   // a struct
    details,  // a struct with a list in each field, a value for each of a curve's
    sound     // samples
};

struct Output {
    std::string name;
    Form form;
    std::string across; // of a matrix: the output that is the axis of its rows, or what its rows are
};

struct Function {
    std::string name;
    std::string room;
    std::string summary; // one line
    std::string help;    // all of it
    std::vector<std::string> inputs;
    bool options; // whether name-value pairs follow the inputs
    std::vector<Output> outputs;

    bool takes(const std::string& input) const;
    /// Whether it works on a recording, which brings its sample rate along.
    bool takesRecording() const { return takes("wave"); }
    /// Whether an input is the sample rate of the recording.
    bool isRate(const std::string& input) const;
    /// The position of the first output of a form, or of a name; -1 if there is none.
    int find(Form form) const;
    int find(const std::string& output) const;
};

/// All of them, in the order of the package's index.
const std::vector<Function>& functions();

/// The function of that name; a std::runtime_error where there is none.
const Function& function(const std::string& name);

} // namespace shell
