#include "audio/endPoint/detectors.hpp"

#include "audio/framing/wholeFrames.hpp"
#include "utility/rounding.hpp"

#include <limits>

namespace wavepitch::endPoint {

Levels frameVolumes(framing::SampleSource& wave, FrameLayout frames) {
    auto volume = framing::valuePerFrame<int>(wave.length(), frames.frameSize, frames.overlap);
    findVolumes(wave, frames, volume.data());
    return volume;
}

Levels frameVolumes(const int* wave, int waveLen, FrameLayout frames) {
    framing::IntSamples samples(wave, waveLen);
    return frameVolumes(samples, frames);
}

int levelThreshold(int lowest, int highest, int ratio) {
    if (ratio == 0) return std::numeric_limits<int>::max();
    return clampToInt(lowest + (std::int64_t{highest} - lowest) / ratio);
}

} // namespace wavepitch::endPoint
