// What wave2pfMat asks of its inputs in a host whose arrays are not all doubles: the module reads the first
// as full doubles and the others as numbers without a look at their class.

#include "mex.h"

#include <iterator>
#include <string>

/// The module, its mexFunction renamed.
extern "C" void gatewayFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);
extern "C" void moduleFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);

namespace {

constexpr const char* scalarNames[] = {"FRAMESIZE", "OVERLAP", "PFLEN", "PFTYPE", "PFMETHOD"};
constexpr int inputCount = 1 + static_cast<int>(std::size(scalarNames));

[[noreturn]] void refuse(const std::string& rule) {
    mexErrMsgTxt((std::string(mexFunctionName()) + ": " + rule).c_str());
}

bool isRealAndFull(const mxArray* array) {
    return !mxIsComplex(array) && !mxIsSparse(array);
}

void checkInputs(const mxArray* prhs[]) {
    if (!mxIsDouble(prhs[0]) || !isRealAndFull(prhs[0]))
        refuse("WAVE must be a real, full array of class double");
    for (int i = 1; i < inputCount; ++i) {
        if (mxIsNumeric(prhs[i]) && isRealAndFull(prhs[i]) && mxGetNumberOfElements(prhs[i]) == 1) continue;
        refuse(std::string(scalarNames[i - 1]) + " must be a real numeric scalar");
    }
}

} // namespace

void moduleFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    if (nrhs == inputCount) checkInputs(prhs); // any other number: the module's usage text
    gatewayFunction(nlhs, plhs, nrhs, prhs);
}
