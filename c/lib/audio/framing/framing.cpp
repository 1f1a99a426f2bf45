#include "audio/framing/framing.hpp"

#include "utility/rounding.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

std::int64_t frameStep(int frameSize, int overlap) {
    return std::int64_t{frameSize} - overlap;
}

} // namespace

int cAudioFraming::getFrameNum(int waveLen, int frameSize, int overlap) {
    const std::int64_t step = frameStep(frameSize, overlap);
    if (step < 1) return 0;
    return truncateToInt(std::ceil(static_cast<double>(waveLen) / static_cast<double>(step)));
}

int cAudioFraming::getFrameNum2(int waveLen, int frameSize, int overlap) {
    const std::int64_t step = frameStep(frameSize, overlap);
    if (step < 1) return 0;
    return clampToInt((std::int64_t{waveLen} - overlap) / step);
}

void cAudioFraming::buffer2(int waveLen, int frameSize, int overlap, int* frameStart) {
    const std::int64_t step = frameStep(frameSize, overlap);
    const int frameNum = getFrameNum2(waveLen, frameSize, overlap);
    for (int i = 0; i < frameNum; ++i) frameStart[i] = clampToInt(i * step);
}

void cAudioFraming::bufferXXX(const int* wave, int waveLen, int frameSize, int overlap, int* out) {
    if (frameSize < 1) return;
    const std::int64_t step = frameStep(frameSize, overlap);
    const int frameNum = getFrameNum(waveLen, frameSize, overlap);
    for (int i = 0; i < frameNum; ++i) {
        int* frame = out + std::int64_t{i} * frameSize;
        const std::int64_t first = i * step - overlap; // the sample at the front of the frame
        const auto leading = static_cast<int>(std::clamp<std::int64_t>(-first, 0, frameSize));
        const auto inside = static_cast<int>(std::clamp<std::int64_t>(waveLen - first, leading, frameSize));
        std::fill(frame, frame + leading, 0);
        if (leading < inside) std::copy(wave + (first + leading), wave + (first + inside), frame + leading);
        std::fill(frame + inside, frame + frameSize, 0);
    }
}

int cAudioFraming::frame2sampleIndex(int frameIndex, int frameSize, int overlap) {
    // |frameIndex * step| stays below 2^63: the step of two ints fits 33 bits.
    const std::int64_t step = frameStep(frameSize, overlap);
    if (step < 1) return 0;
    return clampToInt(frameIndex * step + frameSize / 2 - 1);
}

int cAudioFraming::sample2frameIndex(int sampleIndex, int frameSize, int overlap) {
    const std::int64_t step = frameStep(frameSize, overlap);
    if (step < 1) return 0;
    const double fromCentre = (static_cast<double>(sampleIndex) + 1.0) - 0.5 * frameSize;
    return std::max(0, myRound2(static_cast<float>(fromCentre) / static_cast<float>(step)));
}

int cAudioFraming::intDiv(int a, int b) {
    return ::intDiv(a, b);
}

int cAudioFraming::myRound2(float x) {
    return myRound(x);
}
