#include "standIn.hpp"

#include "utility/classicLocale.hpp"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <limits>
#include <utility>

namespace {

void toStandardOutput(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

thread_local standIn::Console currentConsole = toStandardOutput;
thread_local std::string functionName = "mexFunction";

using Arrays = std::vector<std::unique_ptr<mxArray>>;

thread_local Arrays* arraysOfCall = nullptr; // what the running call has created; null outside of calls

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

mxArray* created(std::unique_ptr<mxArray> array) {
    if (!arraysOfCall) return array.release();
    arraysOfCall->push_back(std::move(array));
    return arraysOfCall->back().get();
}

/// Puts a value that the call has created into an array.
void takeOver(mxArray& place, mxArray* value) {
    place = std::move(*value);
    if (!arraysOfCall) delete value; // within a call, the emptied array goes at its end
}

/// Bytes of an element; 0 of a class that the stand-in host has no numeric matrix of.
size_t elementSize(mxClassID classID) {
    switch (classID) {
    case mxINT8_CLASS:
    case mxUINT8_CLASS:
        return 1;
    case mxINT16_CLASS:
    case mxUINT16_CLASS:
        return 2;
    case mxINT32_CLASS:
    case mxUINT32_CLASS:
    case mxSINGLE_CLASS:
        return 4;
    default:
        return 0;
    }
}

const char* nameOf(mxClassID classID) {
    switch (classID) {
    case mxDOUBLE_CLASS:
        return "double";
    case mxSINGLE_CLASS:
        return "single";
    case mxCHAR_CLASS:
        return "char";
    case mxSTRUCT_CLASS:
        return "struct";
    case mxLOGICAL_CLASS:
        return "logical";
    case mxUNKNOWN_CLASS:
        return "unknown";
    case mxCELL_CLASS:
        return "cell";
    default:
        return "integer";
    }
}

/// Refuses an array whose elements are not what the function hands out.
void refuseClass(const char* function, const mxArray* array) {
    const std::string message = std::string(function) + " cannot be asked of an array of class ";
    mexErrMsgTxt((message + nameOf(array->classID)).c_str());
}

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
    const wavepitch::utility::ClassicLocale locale;
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
    return created(std::unique_ptr<mxArray>(new mxArray{m, n, std::vector<double>(m * n)}));
}

mxArray* mxCreateNumericMatrix_700(int rows, int columns, mxClassID classID, mxComplexity complexity) {
    const size_t size = elementSize(classID);
    if (rows < 0 || columns < 0 || complexity != mxREAL || size == 0)
        mexErrMsgTxt(
            "mxCreateNumericMatrix: only real matrices of an integer class or single, of non-negative size");
    const auto m = static_cast<size_t>(rows);
    const auto n = static_cast<size_t>(columns);
    return created(std::unique_ptr<mxArray>(new mxArray{m, n, {}, classID, std::string(m * n * size, '\0')}));
}

mxArray* mxCreateString(const char* text) {
    const std::string bytes = text;
    return created(std::unique_ptr<mxArray>(new mxArray{1, bytes.size(), {}, mxCHAR_CLASS, bytes}));
}

mxArray* mxCreateStructMatrix_700(int rows, int columns, int fieldCount, const char** fieldNames) {
    if (rows != 1 || columns != 1) mexErrMsgTxt("mxCreateStructMatrix: only structs of 1 x 1");
    std::unique_ptr<mxArray> array(new mxArray{1, 1, {}, mxSTRUCT_CLASS});
    array->fieldNames.assign(fieldNames, fieldNames + fieldCount);
    array->fields.resize(array->fieldNames.size());
    return created(std::move(array));
}

mxArray* mxCreateCellMatrix_700(int rows, int columns) {
    if (rows < 0 || columns < 0) mexErrMsgTxt("mxCreateCellMatrix: only of non-negative size");
    std::unique_ptr<mxArray> array(
        new mxArray{static_cast<size_t>(rows), static_cast<size_t>(columns), {}, mxCELL_CLASS});
    array->fields.resize(array->rows * array->columns);
    return created(std::move(array));
}

void mxSetCell_700(mxArray* array, int index, mxArray* value) {
    takeOver(array->fields.at(static_cast<size_t>(index)), value);
}

mxArray* mxGetCell_700(const mxArray* array, int index) {
    const auto i = static_cast<size_t>(index);
    return i < array->fields.size() ? const_cast<mxArray*>(&array->fields[i]) : nullptr;
}

void mxSetField(mxArray* array, int index, const char* fieldName, mxArray* value) {
    const auto& names = array->fieldNames;
    const auto name = std::find(names.begin(), names.end(), fieldName);
    if (index != 0 || name == names.end()) mexErrMsgTxt("mxSetField: no such field");
    takeOver(array->fields[static_cast<size_t>(name - names.begin())], value);
}

mxClassID mxGetClassID(const mxArray* array) {
    return array->classID;
}

bool mxIsComplex(const mxArray* /*array*/) {
    return false;
}

bool mxIsSparse(const mxArray* /*array*/) {
    return false;
}

int mxGetNumberOfDimensions_700(const mxArray* array) {
    return array->dimensions;
}

size_t mxGetM(const mxArray* array) {
    return array->rows;
}

size_t mxGetN(const mxArray* array) {
    return array->columns;
}

double* mxGetPr(const mxArray* array) {
    if (array->classID != mxDOUBLE_CLASS) refuseClass("mxGetPr", array);
    if (array->borrowed) return static_cast<double*>(const_cast<void*>(array->borrowed));
    return const_cast<double*>(array->data.data());
}

void* mxGetData(const mxArray* array) {
    if (array->classID == mxDOUBLE_CLASS) return mxGetPr(array);
    if (array->classID == mxSTRUCT_CLASS || array->classID == mxCELL_CLASS) refuseClass("mxGetData", array);
    if (array->borrowed) return const_cast<void*>(array->borrowed);
    return const_cast<char*>(array->bytes.data());
}

int mxGetString(const mxArray* array, char* text, int size) {
    const bool fits = size > 0 && array->bytes.size() < static_cast<size_t>(size);
    if (array->classID != mxCHAR_CLASS || array->rows > 1 || !fits) return 1;
    std::memcpy(text, array->bytes.c_str(), array->bytes.size() + 1);
    return 0;
}

double mxGetScalar(const mxArray* array) {
    const bool isLogical = array->classID == mxLOGICAL_CLASS;
    if (!isLogical && array->classID != mxDOUBLE_CLASS) refuseClass("mxGetScalar", array);
    if (array->rows * array->columns == 0) return std::numeric_limits<double>::quiet_NaN();
    return isLogical ? *static_cast<unsigned char*>(mxGetData(array)) : *mxGetPr(array);
}
