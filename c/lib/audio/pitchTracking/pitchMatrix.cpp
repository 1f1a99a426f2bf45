#include "audio/pitchTracking/pitchMatrix.hpp"

#include "audio/pitchTracking/clarity.hpp"

#include <cmath>

#include "mex.h"

namespace wavepitch::pitchTracking {

int pfMethodOf(PF_TYPE pfType) {
    if (pfType == PF_AMDF) return 2;
    return pfType == PF_ACF ? 1 : 3;
}

bool normalise(const PitchMatrix& matrix) {
    double largest = 0.0;
    for (std::ptrdiff_t i = 0; i < matrix.size(); ++i) {
        const double magnitude = std::abs(matrix.values[i]);
        if (magnitude > largest) largest = magnitude;
    }
    if (largest == 0.0) return false;
    for (std::ptrdiff_t i = 0; i < matrix.size(); ++i)
        matrix.values[i] = matrix.values[i] * 1048576.0 / largest;
    return true;
}

void findClarity(const PitchMatrix& matrix, const PTPARAM& ptParam, double* clarity) {
    for (int i = 0; i < matrix.frameNum; ++i) {
        pf2pitchClarity(matrix.frame(i), matrix.pfLen, ptParam, clarity + i);
        if (clarity[i] > 1.0) mexPrintf("i=%d/%d: clarity=%g\n", i, matrix.frameNum, clarity[i]);
    }
}

void weightByClarity(const PitchMatrix& matrix, const double* clarity) {
    for (int i = 0; i < matrix.frameNum; ++i)
        for (int lag = 0; lag < matrix.pfLen; ++lag) matrix.frame(i)[lag] *= clarity[i];
}

} // namespace wavepitch::pitchTracking
