// The pitch functions of a recording, and what the tracker does to them before it looks for candidates.
#pragma once

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

/// The method of wave2pfMat for a type: 2 (mean) for the AMDF, 1 (sum) for the ACF; 3 for any other type,
/// which wave2pfMat refuses.
int pfMethodOf(PF_TYPE pfType);

/// Scales the values so that the largest magnitude is 2^20.
///
/// @return  false where all values are 0 (a silent waveform) and stay so.
bool normalise(const PitchMatrix& matrix);

/// The clarity of each frame, into clarity[0] to clarity[frameNum - 1]; one above 1 is reported on the host
/// console as "i=%d/%d: clarity=%g\n".
void findClarity(const PitchMatrix& matrix, const PTPARAM& ptParam, double* clarity);

/// Multiplies each frame's values by its clarity.
void weightByClarity(const PitchMatrix& matrix, const double* clarity);

} // namespace wavepitch::pitchTracking
