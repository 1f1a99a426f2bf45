// The lags of a pitch range.
#pragma once

#include "audio/pitchTracking/param.hpp"

namespace wavepitch::pitchTracking {

/// Both ends included; empty where last is below first.
struct LagRange {
    int first;
    int last;
};

/// The lags of maxPitch and of minPitch: fs by their frequencies, in single precision, rounded. A bound of 0
/// or less, or not-a-number, has no lag: it leaves every lag outside the range.
LagRange lagRange(const PTPARAM& ptParam);

} // namespace wavepitch::pitchTracking
