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

#include "audio/endPoint/detectors.hpp"
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
    Melody(TrackedWave& itsWave, const PTPARAM& itsParam, const Results& itsResults)
        : wave(itsWave), recording(itsWave.framed()), ptParam(itsParam), results(itsResults),
          pfLen(std::max(itsParam.pfLen, 0)), candidates(itsParam),
          path(itsParam,
               [this](int frame, int lag, std::optional<double> ratio) { choose(frame, lag, ratio); }) {}

    /// Sets pitch, bestIndex and clarity of all frames, and the matrix.
    void find(int framesAtATime) {
        const int frameNum = recording.frameNum;
        const bool isWhole = results.pfMat || framesAtATime >= frameNum;
        PitchMatrix block = matrix(results.pfMat, isWhole ? frameNum : framesAtATime);
        if (isWhole) recording.pitchFunctions(0, block);
        largest = isWhole ? largestMagnitude(block) : wave.largestMagnitude();
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

    TrackedWave& wave;
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

void volumeGate(TrackedWave& wave, double* pitch) {
    if (wave.sound()) return applyMask(*wave.sound(), pitch);
    mexPrintf("Warning: Cannot find any segment after epdByVol! (line %d of file %s)", __LINE__,
              audioSourcePath);
    std::fill_n(pitch, wave.framed().frameNum, 0.0);
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

} // namespace

TrackedWave::TrackedWave(framing::SampleSource& samples, const PTPARAM& ptParam)
    : param(ptParam), frames(samples, ptParam) {}

double TrackedWave::largestMagnitude() {
    if (!magnitude) magnitude = wavepitch::pitchTracking::largestMagnitude(frames, param.pfLen);
    return *magnitude;
}

const std::optional<std::vector<bool>>& TrackedWave::sound() {
    if (isSoundKnown) return mask;
    EPDPARAM epdParam;
    cAudioEndPoint::epdParamSet(param.fs, epdParam);
    int segNum = 0;
    const SegmentArray segments = endPoint::segmentsByVolume(frames.samples, param.fs, epdParam, segNum);
    if (segNum > 0) mask = soundMask(segments.get(), segNum, epdParam, param, frames.frameNum);
    isSoundKnown = true;
    return mask;
}

int framesInCache(int pfLen) {
    constexpr int values = 1 << 15;
    constexpr int lanes = 16;
    const int frames = values / std::max(pfLen, 1);
    return frames < lanes ? std::max(frames, 1) : frames - frames % lanes;
}

int track(TrackedWave& recording, PTPARAM& ptParam, double* pitch, double* clarity, double* pfMat,
          int* bestIndexOut, int framesAtATime) {
    setSearchedLags(ptParam);
    const int frameNum = recording.framed().frameNum;
    if (frameNum == 0) return 0;
    std::fill_n(pitch, frameNum, 0.0);
    if (bestIndexOut) std::fill_n(bestIndexOut, frameNum, -1);
    const bool clarityWanted = clarity != nullptr || ptParam.useClarityWeight != 0;
    std::vector<double> ownClarity(clarity ? 0 : static_cast<std::size_t>(frameNum));
    if (!clarity) clarity = ownClarity.data();
    Melody(recording, ptParam, {pitch, clarity, pfMat, bestIndexOut, clarityWanted}).find(framesAtATime);

    if (ptParam.useVolThreshold != 0) volumeGate(recording, pitch);
    if (ptParam.useClarityThreshold != 0) clarityGate(ptParam, clarity, frameNum, pitch);
    if (ptParam.medianFilterOrder >= 3) medianFilter(pitch, frameNum, ptParam.medianFilterOrder);
    return ptParam.cutLeadingTrailingZero != 0 ? cutZeros(pitch, frameNum) : frameNum;
}

int track(const int* wave, int waveLen, PTPARAM& ptParam, double* pitch, double* clarity, double* pfMat,
          int* bestIndexOut, int framesAtATime) {
    framing::IntSamples samples(wave, waveLen);
    TrackedWave recording(samples, ptParam);
    return track(recording, ptParam, pitch, clarity, pfMat, bestIndexOut, framesAtATime);
}

} // namespace wavepitch::pitchTracking

template <>
int ptByDpOverPfOnce<double, int>(const int* wave, int waveLen, PTPARAM& ptParam, double* pitch,
                                  double* clarity, double* pfMat, int* bestIndexOut) {
    using namespace wavepitch::pitchTracking;
    return track(wave, waveLen, ptParam, pitch, clarity, pfMat, bestIndexOut, framesInCache(ptParam.pfLen));
}
