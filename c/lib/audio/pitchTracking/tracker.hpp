// The pitch tracker: from a recording to its melody.
#pragma once

#include "audio/pitchTracking/param.hpp"
#include "audio/pitchTracking/pitchMatrix.hpp"

#include <optional>
#include <vector>

/// Tracks the pitch of a recording in one pass. The stages stand in tracker.cpp.
///
/// @param wave          waveLen samples, of 16 bits or of 8, left unchanged.
/// @param waveLen       samples in the recording.
/// @param ptParam       the parameters; minIndex and maxIndex are set here.
/// @param pitch         receives the pitch of each whole frame in semitones (as many as
///                      cAudio::getFrameNum2 counts), 0 for a frame without pitch.
/// @param clarity       receives the clarity of each frame: with useClarityThreshold the ratio of the pitch
///                      function at the chosen lag to that at lag 0 (0 without a lag or where the ratio is
///                      not from 0 to 1), else what pf2pitchClarity says. May be null.
/// @param pfMat         receives the pitch functions as the path search has seen them, pfLen values for each
///                      frame, column = frame, row = lag; normalised to a largest magnitude of 2^20, and
///                      weighted by clarity where useClarityWeight says so. May be null.
/// @param bestIndexOut  receives the lag chosen for each frame, -1 for none. May be null.
/// @return              the number of valid values at the front of pitch: that of the whole frames, or fewer
///                      with cutLeadingTrailingZero. Behind them pitch holds what was there before the cut.
///
/// A recording without a whole frame (a frame step of 0 or less included) sets minIndex and maxIndex, writes
/// and prints nothing else and gives 0. One whose pitch functions are 0 everywhere has no candidate: pitch 0,
/// clarity 0, no lag. A clarity above 1, and volume end points that find no sound, are reported on the host
/// console. A type that is neither PF_AMDF nor PF_ACF is fatal path A in wave2pfMat.
///
/// Memory beyond the caller's arrays: 8 bytes for each frame, what the volume end points take, a block of
/// frames (1 MB), and the frames whose lag is not settled yet (openPath.hpp): together 7 MB for an hour at 16
/// kHz, of speech as of silence or noise. At worst, where the paths through all candidates neither meet nor
/// go straight on, these frames are all there are, with 16 bytes for each candidate: 0.5 MB for a second at
/// 16 kHz with every lag a candidate.
///
/// The instance: <double, int>.
template <typename Pitch, typename Sample>
int ptByDpOverPfOnce(const Sample* wave, int waveLen, PTPARAM& ptParam, Pitch* pitch, double* clarity,
                     double* pfMat, int* bestIndexOut);

template <>
int ptByDpOverPfOnce<double, int>(const int* wave, int waveLen, PTPARAM& ptParam, double* pitch,
                                  double* clarity, double* pfMat, int* bestIndexOut);

namespace wavepitch::pitchTracking {

/// A recording and its frames, with what runs of the tracker over it have in common, whatever range of pitch
/// they search: found by the first of them.
class TrackedWave {
public:
    /// The samples must outlive it.
    ///
    /// @param ptParam  frameSize, overlap, pfLen, pfType and fs are those of every run.
    TrackedWave(framing::SampleSource& samples, const PTPARAM& ptParam);

    const FramedWave& framed() const { return frames; }
    /// In the pitch functions of all frames.
    double largestMagnitude();
    /// The frames inside the sound that cAudio::epdByVol finds; none where it finds no segment.
    const std::optional<std::vector<bool>>& sound();

private:
    PTPARAM param;
    FramedWave frames;
    std::optional<double> magnitude;
    bool isSoundKnown = false;
    std::optional<std::vector<bool>> mask;
};

/// Frames that the tracker takes at a time: so many that a block's matrix and candidates stay in the
/// processor's cache; full vectors of frames.
int framesInCache(int pfLen);

/// The same as ptByDpOverPfOnce with as many frames at a time as given, 1 or more; the results do not depend
/// on it.
int track(TrackedWave& recording, PTPARAM& ptParam, double* pitch, double* clarity, double* pfMat,
          int* bestIndexOut, int framesAtATime);
int track(const int* wave, int waveLen, PTPARAM& ptParam, double* pitch, double* clarity, double* pfMat,
          int* bestIndexOut, int framesAtATime);

} // namespace wavepitch::pitchTracking
