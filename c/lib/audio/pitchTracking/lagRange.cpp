#include "audio/pitchTracking/lagRange.hpp"

#include "audio/waveform/synthesis.hpp"
#include "utility/rounding.hpp"

#include <climits>

namespace wavepitch::pitchTracking {

namespace {

/// The lag of a pitch, or the given one where it has none.
int lagOf(int fs, float pitch, int otherwise) {
    return pitch > 0.0F ? myRound(static_cast<float>(fs) / cAudioSynthesis::pitch2freq(pitch)) : otherwise;
}

} // namespace

LagRange lagRange(const PTPARAM& ptParam) {
    return {lagOf(ptParam.fs, ptParam.maxPitch, INT_MAX), lagOf(ptParam.fs, ptParam.minPitch, -1)};
}

} // namespace wavepitch::pitchTracking
