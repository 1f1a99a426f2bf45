// Where the frames and lags of a recording lie.
#pragma once

#include "audio/voice/kernel/correlation.hpp"
#include "audio/voice/voice.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace wavepitch::voice {

struct Layout {
    Layout(int waveLength, const VOICEPARAM& param);

    std::size_t decimation; // samples of the recording for each of the band signal
    double rate;            // of the band signal, Hz
    double frameRate;
    std::size_t windowLen; // samples that are correlated
    std::size_t minLag;    // one lag beyond the range at each end, for maxima at its ends
    std::size_t lagNum;
    double bandTop; // Hz
    int waveLen;
    std::size_t frameNum = 0;

    std::size_t maxLag() const { return minLag + lagNum - 1; }

    /// The band signal's sample at a frame's instant.
    std::int64_t centre(std::size_t frame) const {
        return std::llround(static_cast<double>(frame) * rate / frameRate);
    }

    /// Samples of the band signal before a frame's centre that its correlation needs.
    std::size_t before() const { return (windowLen + maxLag()) / 2; }

    /// All that it needs.
    std::size_t span() const { return windowLen + maxLag(); }

    /// Frames, in whole groups, that are worked on at a time: some thousand samples.
    std::size_t framesOfPiece() const {
        const auto groups = static_cast<std::size_t>(8192 * frameRate / rate) / correlationFrames;
        return correlationFrames * std::max<std::size_t>(groups, 1);
    }
};

} // namespace wavepitch::voice
