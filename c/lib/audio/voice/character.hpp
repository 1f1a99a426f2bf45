// What the thresholds of a recording depend on.
#pragma once

#include "audio/voice/band.hpp"

namespace wavepitch::voice {

struct Character {
    double loudPower;    // mean square of the band signal in the recording's loud frames
    bool hasFundamental; // a telephone's band has none
};

/// The loud frames' power is the 90 % point of the powers of the frames within 30 dB of the loudest, so that
/// rests of any length do not count.
Character characterOf(Band& band, const Layout& layout, const VOICEPARAM& param);

} // namespace wavepitch::voice
