// The module wavepitchLibrary with one more command, which chooses the version of the kernels for the calls
// behind it: wavepitchLibrary ("kernelVersion", NAME).
#include "mex.h"

#include "support/kernelVersion.hpp"

/// The module, its mexFunction renamed, and what its entry point calls instead.
extern "C" void moduleFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);
extern "C" void chosenFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]);

namespace {

std::string textOf(const mxArray* array) {
    char text[16] = "";
    mxGetString(array, text, sizeof text);
    return text;
}

} // namespace

void chosenFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    if (nrhs == 2 && textOf(prhs[0]) == "kernelVersion")
        chooseKernelVersion(textOf(prhs[1]));
    else
        moduleFunction(nlhs, plhs, nrhs, prhs);
}
