// The whole tracker, with what only tests choose.
#pragma once

#include "audio/voice/layout.hpp"
#include "audio/voice/level.hpp"

namespace wavepitch::voice {

/// Arrays as wave2f0 receives them.
struct Results {
    double* f0;
    double* strength;
    float* correlation;
    VOICECANDIDATES* candidates;
};

/// @param most  samples of the band signal that are kept; the results do not depend on it.
void track(const Source& source, const Layout& layout, const VOICEPARAM& param, std::size_t most,
           const Results& results);

} // namespace wavepitch::voice
