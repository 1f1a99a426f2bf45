#include "audio/pitchFunction/pitchFunction.hpp"

#include "audio/pitchFunction/kernel/kernel.hpp"

#include <algorithm>
#include <cmath>

namespace {

template <typename T>
void flip(T* frame, int frameSize) {
    T sum = 0;
    for (int j = 0; j < frameSize; ++j) sum += frame[j];
    const T mean = sum / static_cast<T>(frameSize);
    const int half = frameSize / 2;
    T first = 0;
    T second = 0;
    for (int j = 0; j < half; ++j) first += std::abs(frame[j] - mean);
    for (int j = half; j < frameSize; ++j) second += std::abs(frame[j] - mean);
    if (second > first) std::reverse(frame, frame + frameSize);
}

void flip(int* frame, int frameSize) {
    wavepitch::pitchFunction::version().flipInts(frame, static_cast<std::size_t>(frameSize));
}

} // namespace

template <typename T>
void cAudioPitchFunction::frameFlip(T* frame, int frameSize) {
    if (frameSize > 1) flip(frame, frameSize);
}

template void cAudioPitchFunction::frameFlip(int*, int);
template void cAudioPitchFunction::frameFlip(float*, int);
template void cAudioPitchFunction::frameFlip(double*, int);
