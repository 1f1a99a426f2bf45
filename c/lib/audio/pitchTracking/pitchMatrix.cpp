#include "audio/pitchTracking/pitchMatrix.hpp"

#include "audio/framing/wholeFrames.hpp"
#include "audio/pitchTracking/clarity.hpp"

#include <cmath>

#include "mex.h"

namespace wavepitch::pitchTracking {

namespace {

/// wave2pfMat refuses the method 3 that it is given for unknown types.
int pfMethodOf(PF_TYPE pfType) {
    if (pfType == PF_AMDF) return 2;
    return pfType == PF_ACF ? 1 : 3;
}

} // namespace

FramedWave::FramedWave(framing::SampleSource& itsSamples, const PTPARAM& ptParam)
    : samples(itsSamples), frameSize(ptParam.frameSize), overlap(ptParam.overlap),
      frameNum(framing::wholeFrameNum(itsSamples.length(), ptParam.frameSize, ptParam.overlap)),
      pfType(ptParam.pfType) {}

void FramedWave::pitchFunctions(int first, const PitchMatrix& matrix) const {
    wave2pfMat(read(first, matrix.frameNum), sampleNum(matrix.frameNum), frameSize, overlap, matrix.pfLen,
               pfType, pfMethodOf(pfType), matrix.values);
}

double largestMagnitude(const PitchMatrix& matrix) {
    double largest = 0.0;
    for (std::ptrdiff_t i = 0; i < matrix.size(); ++i) {
        const double magnitude = std::abs(matrix.values[i]);
        largest = magnitude > largest ? magnitude : largest;
    }
    return largest;
}

void normalise(const PitchMatrix& matrix, double magnitude) {
    for (std::ptrdiff_t i = 0; i < matrix.size(); ++i)
        matrix.values[i] = matrix.values[i] * 1048576.0 / magnitude;
}

void findClarity(const PitchMatrix& matrix, const PTPARAM& ptParam, int first, int frameNum,
                 double* clarity) {
    for (int i = 0; i < matrix.frameNum; ++i) {
        pf2pitchClarity(matrix.frame(i), matrix.pfLen, ptParam, clarity + i);
        if (clarity[i] > 1.0) mexPrintf("i=%d/%d: clarity=%g\n", first + i, frameNum, clarity[i]);
    }
}

void weightByClarity(const PitchMatrix& matrix, const double* clarity) {
    for (int i = 0; i < matrix.frameNum; ++i)
        for (int lag = 0; lag < matrix.pfLen; ++lag) matrix.frame(i)[lag] *= clarity[i];
}

} // namespace wavepitch::pitchTracking
