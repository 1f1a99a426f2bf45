#include "standIn.hpp"

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

} // namespace

namespace standIn {

Console setConsole(Console console) {
    return std::exchange(currentConsole, console ? console : toStandardOutput);
}

void setFunctionName(std::string name) {
    functionName = std::move(name);
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
    return new mxArray{m, n, std::vector<double>(m * n)};
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
