#include "standIn.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <limits>
#include <utility>

namespace {

void toStandardOutput(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

standIn::Console currentConsole = toStandardOutput;
std::string functionName = "mexFunction"; // NOLINT(cert-err58-cpp)

using Arrays = std::vector<std::unique_ptr<mxArray>>;

Arrays* arraysOfCall = nullptr; // what the running call has created; null outside of calls

/// Owns what one call creates, and gives way to the call around it at the end.
class CallScope {
public:
    CallScope() : outer(std::exchange(arraysOfCall, &arrays)) {}
    ~CallScope() { arraysOfCall = outer; }
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

    std::unique_ptr<mxArray> release(const mxArray* array) {
        const auto owner = std::find_if(arrays.begin(), arrays.end(),
                                        [&](const auto& created) { return created.get() == array; });
        if (owner == arrays.end()) mexErrMsgTxt("an output is not an array of its own, created by the call");
        return std::move(*owner);
    }

private:
    Arrays arrays;
    Arrays* outer;
};

} // namespace

namespace standIn {

Console setConsole(Console console) {
    return std::exchange(currentConsole, console ? console : toStandardOutput);
}

void setFunctionName(std::string name) {
    functionName = std::move(name);
}

Arrays call(EntryPoint entry, int outputCount, const std::vector<mxArray>& inputs) {
    std::vector<const mxArray*> prhs;
    prhs.reserve(inputs.size());
    for (const mxArray& input : inputs) prhs.push_back(&input);
    std::vector<mxArray*> plhs(static_cast<size_t>(std::max(outputCount, 1)));
    CallScope scope;
    entry(outputCount, plhs.data(), static_cast<int>(prhs.size()), prhs.data());
    Arrays outputs;
    for (const mxArray* array : plhs) outputs.push_back(array ? scope.release(array) : nullptr);
    return outputs;
}

} // namespace standIn

void mexErrMsgTxt(const char* msg) {
    throw standIn::HostError(msg);
}

const char* mexFunctionName() {
    return functionName.c_str();
}

int mexPrintf(const char* format, ...) {
    std::va_list args;
    va_start(args, format);
    std::va_list again;
    va_copy(again, args);
    const int length = std::vsnprintf(nullptr, 0, format, args);
    va_end(args);
    std::string text(length > 0 ? static_cast<size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    currentConsole(text);
    return length;
}

mxArray* mxCreateDoubleMatrix_700(int rows, int columns, mxComplexity complexity) {
    if (rows < 0 || columns < 0 || complexity != mxREAL)
        mexErrMsgTxt("mxCreateDoubleMatrix: only real matrices of non-negative size");
    const auto m = static_cast<size_t>(rows);
    const auto n = static_cast<size_t>(columns);
    std::unique_ptr<mxArray> array(new mxArray{m, n, std::vector<double>(m * n)});
    if (!arraysOfCall) return array.release();
    arraysOfCall->push_back(std::move(array));
    return arraysOfCall->back().get();
}

size_t mxGetM(const mxArray* array) {
    return array->rows;
}

size_t mxGetN(const mxArray* array) {
    return array->columns;
}

double* mxGetPr(const mxArray* array) {
    return const_cast<double*>(array->data.data());
}

double mxGetScalar(const mxArray* array) {
    return array->data.empty() ? std::numeric_limits<double>::quiet_NaN() : array->data.front();
}
