#include "audio/pitchFunction/pitchFunction.hpp"

#include "utility/rounding.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

/// The sums of a frame, in the type that they are formed in.
template <typename T>
struct Arithmetic {
    using Sum = T;
    static T mean(Sum sum, int n) { return sum / static_cast<T>(n); }
    static Sum deviation(T x, T mean) { return std::abs(x - mean); }
};

template <>
struct Arithmetic<int> {
    using Sum = std::int64_t;
    static int mean(Sum sum, int n) { return myRound(static_cast<float>(static_cast<double>(sum) / n)); }
    static Sum deviation(int x, int mean) { return std::abs(Sum{x} - mean); }
};

} // namespace

template <typename T>
void cAudioPitchFunction::frameFlip(T* frame, int frameSize) {
    using Sum = typename Arithmetic<T>::Sum;
    if (frameSize < 2) return;
    Sum sum = 0;
    for (int j = 0; j < frameSize; ++j) sum += frame[j];
    const T mean = Arithmetic<T>::mean(sum, frameSize);
    const int half = frameSize / 2;
    Sum first = 0;
    Sum second = 0;
    for (int j = 0; j < half; ++j) first += Arithmetic<T>::deviation(frame[j], mean);
    for (int j = half; j < frameSize; ++j) second += Arithmetic<T>::deviation(frame[j], mean);
    if (second > first) std::reverse(frame, frame + frameSize);
}

template void cAudioPitchFunction::frameFlip(int*, int);
template void cAudioPitchFunction::frameFlip(float*, int);
template void cAudioPitchFunction::frameFlip(double*, int);
