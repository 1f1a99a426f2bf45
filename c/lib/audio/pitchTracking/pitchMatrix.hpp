// The pitch functions of a recording, frames at a time, and what the tracker does to them before it looks for
// candidates.
#pragma once

#include "audio/framing/sampleSource.hpp"
#include "audio/pitchTracking/param.hpp"

#include <cstddef>

namespace wavepitch::pitchTracking {

/// Column = frame, row = lag, column after column; the values belong to whoever has made it.
struct PitchMatrix {
    double* values;
    int frameNum;
    int pfLen;

    double* frame(int i) const { return values + static_cast<std::ptrdiff_t>(i) * pfLen; }
    std::ptrdiff_t size() const { return static_cast<std::ptrdiff_t>(frameNum) * pfLen; }
};

/// A recording and its whole frames.
struct FramedWave {
    framing::SampleSource& samples;
    int frameSize;
    int overlap;
    int frameNum; ///< wholeFrameNum
    PF_TYPE pfType;

    FramedWave(framing::SampleSource& samples, const PTPARAM& ptParam);

    std::ptrdiff_t step() const { return static_cast<std::ptrdiff_t>(frameSize) - overlap; }

    /// Samples of frames in a row, as many as given, 1 or more, and no more than there are.
    int sampleNum(int frames) const { return static_cast<int>(frames * step() + overlap); }

    /// Those from a frame on; they stand there until the next call.
    const int* read(int first, int frames) const { return samples.read(first * step(), sampleNum(frames)); }

    /// The pitch functions (wave2pfMat: method 2, the mean, of the AMDF, 1, the sum, of the ACF) of as many
    /// frames as the matrix has, from first on.
    void pitchFunctions(int first, const PitchMatrix& matrix) const;
};

/// The largest magnitude, not-a-number left out.
double largestMagnitude(const PitchMatrix& matrix);

/// Scales the values so that a magnitude, which is not 0, becomes 2^20.
void normalise(const PitchMatrix& matrix, double magnitude);

/// The clarity of each frame, into clarity[0] to clarity[matrix.frameNum - 1]; one above 1 is reported on the
/// host console as "i=%d/%d: clarity=%g\n".
///
/// @param first     the number of the matrix's first frame in the recording
/// @param frameNum  and the frames of that.
void findClarity(const PitchMatrix& matrix, const PTPARAM& ptParam, int first, int frameNum, double* clarity);

/// Multiplies each frame's values by its clarity.
void weightByClarity(const PitchMatrix& matrix, const double* clarity);

} // namespace wavepitch::pitchTracking
