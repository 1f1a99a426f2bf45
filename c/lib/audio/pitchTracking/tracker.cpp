// The stages of the tracker, in their order:
//   matrix          the pitch function of each frame (wave2pfMat)
//   normalisation   the largest magnitude becomes 2^20
//   clarity         how periodic each frame is (pf2pitchClarity)
//   weighting       pitch functions times clarity, by useClarityWeight
//   candidates      lags that each frame's period may have (pf2ppc)
//   path            one of them for each frame, by dynamic programming (A2pitchByDp)
//   volume gate     no pitch outside the sound that cAudio::epdByVol finds, by useVolThreshold
//   clarity gate    no pitch in frames of low clarity, by useClarityThreshold
//   median filter   by medianFilterOrder
//   cut             of zeros at both ends, by cutLeadingTrailingZero
#include "audio/pitchTracking/tracker.hpp"

#include "audio/endPoint/endPoint.hpp"
#include "audio/failure.hpp"
#include "audio/framing/wholeFrames.hpp"
#include "audio/pitchTracking/candidateTable.hpp"
#include "audio/pitchTracking/lagRange.hpp"
#include "audio/pitchTracking/medianFilter.hpp"
#include "audio/pitchTracking/postProcess.hpp"
#include "audio/pitchTracking/soundMask.hpp"

#include <algorithm>
#include <vector>

#include "mex.h"

namespace {

/// The caller's array, or one of the tracker's own where the caller has none and the tracker needs one.
double* arrayOr(double* callers, std::vector<double>& own, std::ptrdiff_t size) {
    if (callers) return callers;
    own.resize(static_cast<std::size_t>(size));
    return own.data();
}

void setSearchedLags(PTPARAM& ptParam) {
    const LagRange range = lagRange(ptParam);
    ptParam.minIndex = range.first;
    ptParam.maxIndex = std::min(range.last, std::max(ptParam.pfLen, 0) - 1);
}

void volumeGate(const int* wave, int waveLen, const PTPARAM& ptParam, int frameNum, double* pitch) {
    EPDPARAM epdParam;
    cAudioEndPoint::epdParamSet(ptParam.fs, epdParam);
    int segNum = 0;
    const SegmentArray segments(cAudioEndPoint::epdByVol(wave, waveLen, ptParam.fs, epdParam, &segNum));
    if (segNum == 0)
        mexPrintf("Warning: Cannot find any segment after epdByVol! (line %d of file %s)", __LINE__,
                  audioSourcePath);
    applyMask(soundMask(segments.get(), segNum, epdParam, ptParam, frameNum), pitch);
}

/// The pitch function at the chosen lag by that at lag 0, from 0 to 1.
double clarityOfChoice(const double* pf, int bestIndex) {
    if (bestIndex == -1 || pf[0] == 0.0) return 0.0;
    const double ratio = pf[bestIndex] / pf[0];
    return ratio < 0.0 || ratio > 1.0 ? 0.0 : ratio;
}

void clarityGate(const PitchMatrix& matrix, const CandidateTable& candidates, const PTPARAM& ptParam,
                 double* clarity, double* pitch) {
    for (int i = 0; i < matrix.frameNum; ++i)
        clarity[i] = clarityOfChoice(matrix.frame(i), candidates.bestIndex(i));
    const double threshold =
        static_cast<double>(ptParam.clarityRatio) * *std::max_element(clarity, clarity + matrix.frameNum);
    for (int i = 0; i < matrix.frameNum; ++i)
        if (clarity[i] < threshold) pitch[i] = 0.0;
}

/// Moves what stands between the zeros at both ends to the front, and counts it.
int cutZeros(double* pitch, int n) {
    int first = 0;
    int last = 0;
    cAudioPitchPostProcess::trimPitch(pitch, n, first, last);
    if (first > 0) std::copy(pitch + first, pitch + last + 1, pitch);
    return last + 1 - first;
}

} // namespace

template <>
int ptByDpOverPfOnce<double, int>(const int* wave, int waveLen, PTPARAM& ptParam, double* pitch,
                                  double* clarity, double* pfMat, int* bestIndexOut) {
    setSearchedLags(ptParam);
    const int frameNum = wavepitch::framing::wholeFrameNum(waveLen, ptParam.frameSize, ptParam.overlap);
    if (frameNum == 0) return 0;
    std::fill_n(pitch, frameNum, 0.0);

    std::vector<double> ownMatrix;
    std::vector<double> ownClarity;
    PitchMatrix matrix{nullptr, frameNum, std::max(ptParam.pfLen, 0)};
    matrix.values = arrayOr(pfMat, ownMatrix, matrix.size());
    wave2pfMat(wave, waveLen, ptParam.frameSize, ptParam.overlap, ptParam.pfLen, ptParam.pfType,
               pfMethodOf(ptParam.pfType), matrix.values);
    const bool sounds = normalise(matrix);

    const bool clarityAsked = clarity != nullptr || ptParam.useClarityWeight != 0;
    clarity = arrayOr(clarity, ownClarity, frameNum);
    if (clarityAsked) findClarity(matrix, ptParam, clarity);
    if (ptParam.useClarityWeight != 0) weightByClarity(matrix, clarity);

    CandidateTable candidates(matrix, ptParam, sounds);
    candidates.findPath(ptParam, pitch);
    for (int i = 0; bestIndexOut && i < frameNum; ++i) bestIndexOut[i] = candidates.bestIndex(i);

    if (ptParam.useVolThreshold != 0) volumeGate(wave, waveLen, ptParam, frameNum, pitch);
    if (ptParam.useClarityThreshold != 0) clarityGate(matrix, candidates, ptParam, clarity, pitch);
    if (ptParam.medianFilterOrder >= 3) medianFilter(pitch, frameNum, ptParam.medianFilterOrder);
    return ptParam.cutLeadingTrailingZero != 0 ? cutZeros(pitch, frameNum) : frameNum;
}
