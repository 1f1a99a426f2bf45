// The module wave2pfMat: reads the host's arrays, makes one library call, hands the pitch-function matrix
// back.

#include "audio/audio.hpp"
#include "utility/fatal.hpp"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <new>

#include "mex.h"

namespace {

constexpr int messageSize = 200;

/// Reports "MODULE: RULE" through the host, with the offending values formatted in; does not return.
template <typename... Values>
[[noreturn]] void refuse(const char* rule, Values... values) {
    char text[messageSize / 2];
    char msg[messageSize];
    std::snprintf(text, sizeof text, rule, values...);
    std::snprintf(msg, sizeof msg, "%s: %s", mexFunctionName(), text);
    mexErrMsgTxt(msg);
}

/// A scalar input, truncated toward zero.
int truncatedScalar(const mxArray* array, const char* name) {
    const double value = mxGetScalar(array);
    if (!(value > INT_MIN - 1.0 && value < INT_MAX + 1.0))
        refuse("%s = %g is not a number within the range of int", name, value);
    return static_cast<int>(value);
}

/// Samples in the first input: all its elements, column after column.
int sampleCount(const mxArray* array) {
    const auto rows = static_cast<std::int64_t>(mxGetM(array));
    const auto columns = static_cast<std::int64_t>(mxGetN(array));
    if (rows > INT_MAX || columns > INT_MAX || rows * columns > INT_MAX)
        refuse("wave has %.0f samples; at most %d can be taken",
               static_cast<double>(rows) * static_cast<double>(columns), INT_MAX);
    return static_cast<int>(rows * columns);
}

/// The empty or full result; its size is settled before the host is asked for it.
mxArray* createResult(int pfLen, int frameNum) {
    const int rows = std::max(pfLen, 0);
    const int columns = std::max(frameNum, 0);
    if (std::int64_t{rows} * columns > INT_MAX)
        refuse("a matrix of pfLen = %d rows and %d frames is too large", rows, columns);
    return mxCreateDoubleMatrix(rows, columns, mxREAL);
}

} // namespace

void mexFunction(int /*nlhs*/, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    if (nrhs != 6) {
        char usage[messageSize];
        std::snprintf(usage, sizeof usage,
                      "Usage: out = %s(wave, frameSize, overlap, pfLen, pfType, pfMethod)\n"
                      "\t pfType = 0 for AMDF, 1 for ACF\n",
                      mexFunctionName());
        mexErrMsgTxt(usage);
    }
    const int waveLen = sampleCount(prhs[0]);
    const double* wave = mxGetPr(prhs[0]);
    const int frameSize = truncatedScalar(prhs[1], "frameSize");
    const int overlap = truncatedScalar(prhs[2], "overlap");
    const int pfLen = truncatedScalar(prhs[3], "pfLen");
    const int pfType = truncatedScalar(prhs[4], "pfType");
    const int pfMethod = truncatedScalar(prhs[5], "pfMethod");
    if (frameSize < 1) refuse("frameSize = %d must be at least 1", frameSize);
    if (frameSize <= overlap) refuse("frameSize = %d must exceed overlap = %d", frameSize, overlap);

    plhs[0] = createResult(pfLen, cAudio::getFrameNum2(waveLen, frameSize, overlap));
    try {
        wave2pfMat<double, double>(wave, waveLen, frameSize, overlap, pfLen, static_cast<PF_TYPE>(pfType),
                                   pfMethod, mxGetPr(plhs[0]));
    } catch (const std::bad_alloc&) {
        myExitFormatted("wave2pfMat: no memory for frames of frameSize=%d samples (line %d of file %s)",
                        frameSize, __LINE__, audioSourcePath);
    }
}
