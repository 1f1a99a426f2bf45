// A module for the tests of the host: its first input says how it behaves.

#include <stdexcept>

#include "mex.h"

namespace {

mxArray* copyOf(const mxArray* array) {
    mxArray* copy =
        mxCreateDoubleMatrix(static_cast<int>(mxGetM(array)), static_cast<int>(mxGetN(array)), mxREAL);
    for (size_t i = 0; i < mxGetM(array) * mxGetN(array); ++i) mxGetPr(copy)[i] = mxGetPr(array)[i];
    return copy;
}

} // namespace

void mexFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    mexPrintf("%s: %d in, %d out\n", mexFunctionName(), nrhs, nlhs);
    plhs[0] = mxCreateDoubleMatrix(2, 0, mxREAL);
    switch (static_cast<int>(mxGetScalar(prhs[0]))) {
    case 0: // hands the other inputs back
        for (int i = 1; i < nrhs && i <= nlhs; ++i) plhs[i - 1] = copyOf(prhs[i]);
        return;
    case 1:
        mexErrMsgTxt("the module's own error");
    case 2:
        throw static_cast<const char*>("a fatal text"); // NOLINT(cert-err09-cpp,cert-err61-cpp)
    case 3:
        throw std::runtime_error("a standard exception");
    case 4:
        throw 4;
    case 5:
        plhs[0] = const_cast<mxArray*>(prhs[0]);
        return; // not the module's to give
    default:
        return; // 2 x 0
    }
}
