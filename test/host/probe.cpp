// A module for the tests of the host: its first input says how it behaves.

#include <algorithm>
#include <stdexcept>

#include "mex.h"

void mexFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    mexPrintf("%s: %d in, %d out\n", mexFunctionName(), nrhs, nlhs);
    switch (static_cast<int>(mxGetScalar(prhs[0]))) {
    case 0: // hands the other inputs back
        for (int i = 1; i < nrhs && i <= nlhs; ++i) {
            const size_t m = mxGetM(prhs[i]);
            const size_t n = mxGetN(prhs[i]);
            plhs[i - 1] = mxCreateDoubleMatrix(static_cast<int>(m), static_cast<int>(n), mxREAL);
            std::copy_n(mxGetPr(prhs[i]), m * n, mxGetPr(plhs[i - 1]));
        }
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
        plhs[0] = mxCreateDoubleMatrix(2, 0, mxREAL);
    }
}
