// How large the pitch functions of a recording get, found without keeping them.
#pragma once

#include "audio/pitchTracking/pitchMatrix.hpp"

namespace wavepitch::pitchTracking {

/// The largest magnitude in the pitch functions of all frames. Takes a fraction of the time and of the memory
/// that these take: see loudest.cpp.
double largestMagnitude(const FramedWave& recording, int pfLen);

} // namespace wavepitch::pitchTracking
