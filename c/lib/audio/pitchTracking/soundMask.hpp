// Which pitch frames lie inside the segments of an end-point detector, whose frames are other ones.
#pragma once

#include "audio/endPoint/parameters.hpp"
#include "audio/endPoint/segment.hpp"
#include "audio/pitchTracking/param.hpp"

#include <vector>

namespace wavepitch::pitchTracking {

/// The pitch frame whose middle lies nearest to the middle of a detector's frame, the quotient taken in
/// single precision and rounded; before the first pitch frame it is negative.
int pitchFrameOf(int detectorFrame, const EPDPARAM& epdParam, const PTPARAM& ptParam);

/// One flag for each of frameNum pitch frames: set from the frame of a segment's begin to that of its end,
/// both included, for every segment. What a segment covers outside the pitch frames counts as the nearest of
/// them where it lies before the first, and not at all where it lies behind the last.
std::vector<bool> soundMask(const SEGMENT* segments, int segNum, const EPDPARAM& epdParam,
                            const PTPARAM& ptParam, int frameNum);

/// Sets the pitch of the frames whose flag is off to 0.
void applyMask(const std::vector<bool>& mask, double* pitch);

} // namespace wavepitch::pitchTracking
