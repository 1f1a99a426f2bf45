// The whole frames of a waveform, one after the other: the ground of everything that works frame by frame.
#pragma once

#include "audio/framing/framing.hpp"
#include "audio/framing/sampleSource.hpp"
#include "utility/interruption.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace wavepitch::framing {

/// Whole frames of a waveform: getFrameNum2, and 0 where that is negative or where frameSize or the step is
/// below 1. Every one of them lies inside the waveform.
inline int wholeFrameNum(int waveLen, int frameSize, int overlap) {
    return frameSize < 1 ? 0 : std::max(0, cAudioFraming::getFrameNum2(waveLen, frameSize, overlap));
}

/// Frames between two questions to the host; where frameSize is below 1 there are none to ask between.
inline int framesAtATime(int frameSize) {
    constexpr int samples = 1 << 22;
    return std::max(1, samples / std::max(1, frameSize));
}

/// Writes feature(frame) of each whole frame in order; frame points to frameSize samples of the waveform.
///
/// @param out  room for wholeFrameNum values.
template <typename Sample, typename Value, typename Feature>
void featurePerFrame(const Sample* wave, int waveLen, int frameSize, int overlap, Value* out,
                     Feature feature) {
    const int frameNum = wholeFrameNum(waveLen, frameSize, overlap);
    const std::int64_t step = std::int64_t{frameSize} - overlap;
    const int atATime = framesAtATime(frameSize);
    for (int first = 0, last = 0; first < frameNum; first = last) {
        utility::askForInterruption();
        last = first + std::min(atATime, frameNum - first);
        for (int i = first; i < last; ++i) out[i] = feature(wave + i * step);
    }
}

/// The same of integer samples, which are read a frame at a time.
template <typename Value, typename Feature>
void featurePerFrame(SampleSource& wave, int frameSize, int overlap, Value* out, Feature feature) {
    const int frameNum = wholeFrameNum(wave.length(), frameSize, overlap);
    const std::int64_t step = std::int64_t{frameSize} - overlap;
    const int atATime = framesAtATime(frameSize);
    for (int first = 0, last = 0; first < frameNum; first = last) {
        utility::askForInterruption();
        last = first + std::min(atATime, frameNum - first);
        for (int i = first; i < last; ++i) out[i] = feature(wave.read(i * step, frameSize));
    }
}

/// A vector with one zero for each whole frame.
template <typename Value>
std::vector<Value> valuePerFrame(int waveLen, int frameSize, int overlap) {
    return std::vector<Value>(static_cast<std::size_t>(wholeFrameNum(waveLen, frameSize, overlap)));
}

} // namespace wavepitch::framing
