// The pitch path: one candidate for each frame of a run, chosen so that the pitch function is good at the
// chosen lags and these change little from frame to frame.
#pragma once

#include "audio/pitchTracking/candidates.hpp"

/// Finds the best path through a run of frames that all have candidates, and the pitch along it. The cost of
/// the path is described where it is computed (path.cpp).
///
/// @param A         frameNum frames, each with 1 candidate or more; receives bestIndex, and for each
///                  candidate prevIndex and totalDist. A frame without candidates, which breaks the contract,
///                  cuts the run: it and what lies before it keep their bestIndex and pitch. Lags outside 0
///                  to pfLen - 1 count as 0 tenths of a semitone in distances.
/// @param frameNum  frames of the run; below 1, nothing is written.
/// @param ptParam   read: fs, pfType, pfLen, dpMethod, dpPosDiffOrder, pfWeight, indexDiffWeight.
/// @param pitch     receives the pitch of each frame in semitones, in fixed point (fixedPoint.hpp) for an
///                  integer type: the frequency fs / bestIndex, infinite for lag 0 (the largest integer).
/// A type that is neither PF_AMDF nor PF_ACF is fatal path A with "Unknown ptParam.pfType=%d (line %d of file
/// %s)", once the totals stand.
///
/// Instances: double, int.
template <typename T>
void A2pitchByDp(STRUCT_A* A, int frameNum, const PTPARAM& ptParam, T* pitch);
