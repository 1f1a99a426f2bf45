// The stand-in host: the functions of mex.h for programs that run without a real host (mexhost, the tests,
// the benchmarks, any program that uses the library alone). Link it once, into the program.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "mex.h"

/// A real double matrix, and whatever else its class says.
struct mxArray_tag {
    size_t rows = 0;
    size_t columns = 0;
    std::vector<double> data{}; // of doubles: rows x columns, column after column
    mxClassID classID = mxDOUBLE_CLASS;
    std::string bytes{};                   // of characters, integers and singles: the elements
    std::vector<std::string> fieldNames{}; // of a struct of 1 x 1
    std::vector<mxArray_tag> fields{};     // of a struct: a value for each name; of a cell array: its cells
};

namespace standIn {

/// What mexErrMsgTxt throws; the program that calls a module catches it.
class HostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Where mexPrintf sends its text.
using Console = void (*)(std::string_view text);

/// Sends console output to another place (null: back to standard output) and returns where it went before.
Console setConsole(Console console);

/// The name that mexFunctionName answers from now on.
void setFunctionName(std::string name);

using EntryPoint = decltype(&mexFunction);

/// Calls a module as a host does: every array that it creates and does not hand out is released at the end
/// of the call, whichever way the call ends. (Outside of such a call a created array belongs to its creator,
/// who deletes it.)
///
/// @param outputCount  outputs asked for, at least 0; there is one output slot even for none.
/// @param inputs       the input arrays, in order.
/// @return             max(outputCount, 1) arrays; null where the module has set none.
/// Whatever the module throws passes through; an output that the call has not created, or that stands in
/// two slots, is a HostError.
std::vector<std::unique_ptr<mxArray>> call(EntryPoint entry, int outputCount,
                                           const std::vector<mxArray>& inputs);

} // namespace standIn
