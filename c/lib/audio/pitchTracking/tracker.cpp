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
#include "audio/pitchTracking/candidatePicker.hpp"
#include "audio/pitchTracking/clarity.hpp"
#include "audio/pitchTracking/lagRange.hpp"
#include "audio/pitchTracking/loudest.hpp"
#include "audio/pitchTracking/medianFilter.hpp"
#include "audio/pitchTracking/openPath.hpp"
#include "audio/pitchTracking/pathEnd.hpp"
#include "audio/pitchTracking/pitchMatrix.hpp"
#include "audio/pitchTracking/postProcess.hpp"
#include "audio/pitchTracking/soundMask.hpp"

#include <algorithm>
#include <optional>
#include <vector>

#include "mex.h"

namespace wavepitch::pitchTracking {

namespace {

/// Where the results go; those that nobody wants are null.
struct Results {
    double* pitch;
    double* clarity; // never null
    double* pfMat;
    int* bestIndex;
    bool clarityWanted;
};

/// The stages up to the path.
class Melody {
public:
    Melody(const FramedWave& itsRecording, const PTPARAM& itsParam, const Results& itsResults)
        : recording(itsRecording), ptParam(itsParam), results(itsResults), pfLen(std::max(itsParam.pfLen, 0)),
          candidates(itsParam), path(itsParam, [this](int frame, int lag, std::optional<double> ratio) {
              choose(frame, lag, ratio);
          }) {}

    /// Sets pitch, bestIndex and clarity of all frames, and the matrix.
    void find(int framesAtATime) {
        const int frameNum = recording.frameNum;
        const bool isWhole = results.pfMat || framesAtATime >= frameNum;
        PitchMatrix block = matrix(results.pfMat, isWhole ? frameNum : framesAtATime);
        if (isWhole) recording.pitchFunctions(0, block);
        largest = isWhole ? largestMagnitude(block) : largestMagnitude(recording, pfLen);
        for (int first = 0; first < frameNum; first += framesAtATime) {
            PitchMatrix part = block;
            part.frameNum = std::min(framesAtATime, frameNum - first);
            if (isWhole)
                part.values = block.frame(first);
            else
                recording.pitchFunctions(first, part);
            search(part, first);
            if (framesAtATime > frameNum - first) break; // the sum would overflow
        }
        path.end();
    }

private:
    PitchMatrix matrix(double* callers, int frameNum) {
        PitchMatrix result{callers, frameNum, pfLen};
        if (callers) return result;
        own.resize(static_cast<std::size_t>(result.size()));
        result.values = own.data();
        return result;
    }

    void search(const PitchMatrix& part, int first) {
        double* clarity = results.clarity + first;
        const bool sounds = largest > 0.0;
        if (sounds) normalise(part, largest);
        if (results.clarityWanted) findClarity(part, ptParam, first, recording.frameNum, clarity);
        if (ptParam.useClarityWeight != 0) weightByClarity(part, clarity);
        if (ptParam.useClarityThreshold != 0) std::fill_n(clarity, part.frameNum, 0.0);
        if (!sounds || recording.frameNum == 1) return; // a single frame has no path
        for (int i = 0; i < part.frameNum; ++i) path.add(candidates.of(part.frame(i), pfLen));
        path.handOn();
    }

    void choose(int frame, int lag, std::optional<double> ratio) {
        results.pitch[frame] = pitchOfLag<double>(ptParam.fs, lag);
        if (results.bestIndex) results.bestIndex[frame] = lag;
        if (ptParam.useClarityThreshold == 0) return;
        const double known = ratio ? *ratio : ratioAt(frame, lag);
        results.clarity[frame] = known < 0.0 || known > 1.0 ? 0.0 : known;
    }

    /// The frame's pitch function at a lag by that at lag 0, computed once more.
    double ratioAt(int frame, int lag) {
        single.resize(static_cast<std::size_t>(pfLen));
        const PitchMatrix column{single.data(), 1, pfLen};
        recording.pitchFunctions(frame, column);
        normalise(column, largest);
        double clarity = 1.0;
        if (ptParam.useClarityWeight != 0) {
            pf2pitchClarity(single.data(), pfLen, ptParam, &clarity);
            weightByClarity(column, &clarity);
        }
        return single[0] == 0.0 ? 0.0 : single[static_cast<std::size_t>(lag)] / single[0];
    }

    const FramedWave& recording;
    const PTPARAM& ptParam;
    const Results& results;
    int pfLen;
    CandidatePicker candidates;
    OpenPath path;
    std::vector<double> own; // the matrix, where the caller has none
    std::vector<double> single;
    double largest = 0.0;
};

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

void clarityGate(const PTPARAM& ptParam, const double* clarity, int frameNum, double* pitch) {
    const double largest = *std::max_element(clarity, clarity + frameNum);
    const double threshold = static_cast<double>(ptParam.clarityRatio) * largest;
    for (int i = 0; i < frameNum; ++i)
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

/// So many that a block's matrix and candidates stay in the processor's cache; full vectors of frames.
int framesInCache(int pfLen) {
    constexpr int values = 1 << 15;
    constexpr int lanes = 16;
    const int frames = values / std::max(pfLen, 1);
    return frames < lanes ? std::max(frames, 1) : frames - frames % lanes;
}

} // namespace

int track(const int* wave, int waveLen, PTPARAM& ptParam, double* pitch, double* clarity, double* pfMat,
          int* bestIndexOut, int framesAtATime) {
    setSearchedLags(ptParam);
    const FramedWave recording(wave, waveLen, ptParam);
    const int frameNum = recording.frameNum;
    if (frameNum == 0) return 0;
    std::fill_n(pitch, frameNum, 0.0);
    if (bestIndexOut) std::fill_n(bestIndexOut, frameNum, -1);
    const bool clarityWanted = clarity != nullptr || ptParam.useClarityWeight != 0;
    std::vector<double> ownClarity(clarity ? 0 : static_cast<std::size_t>(frameNum));
    if (!clarity) clarity = ownClarity.data();
    Melody(recording, ptParam, {pitch, clarity, pfMat, bestIndexOut, clarityWanted}).find(framesAtATime);

    if (ptParam.useVolThreshold != 0) volumeGate(wave, waveLen, ptParam, frameNum, pitch);
    if (ptParam.useClarityThreshold != 0) clarityGate(ptParam, clarity, frameNum, pitch);
    if (ptParam.medianFilterOrder >= 3) medianFilter(pitch, frameNum, ptParam.medianFilterOrder);
    return ptParam.cutLeadingTrailingZero != 0 ? cutZeros(pitch, frameNum) : frameNum;
}

} // namespace wavepitch::pitchTracking

template <>
int ptByDpOverPfOnce<double, int>(const int* wave, int waveLen, PTPARAM& ptParam, double* pitch,
                                  double* clarity, double* pfMat, int* bestIndexOut) {
    using namespace wavepitch::pitchTracking;
    return track(wave, waveLen, ptParam, pitch, clarity, pfMat, bestIndexOut, framesInCache(ptParam.pfLen));
}
