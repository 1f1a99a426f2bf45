#include "audio/endPoint/detectors.hpp"

#include "audio/endPoint/features.hpp"
#include "audio/framing/wholeFrames.hpp"
#include "utility/rounding.hpp"

#include <limits>

wavepitch::endPoint::Levels wavepitch::endPoint::frameVolumes(const int* wave, int waveLen,
                                                              FrameLayout frames) {
    auto volume = framing::valuePerFrame<int>(waveLen, frames.frameSize, frames.overlap);
    wave2volume(wave, waveLen, frames.frameSize, frames.overlap, volume.data(), 1);
    return volume;
}

int wavepitch::endPoint::levelThreshold(int lowest, int highest, int ratio) {
    if (ratio == 0) return std::numeric_limits<int>::max();
    return clampToInt(lowest + (std::int64_t{highest} - lowest) / ratio);
}
