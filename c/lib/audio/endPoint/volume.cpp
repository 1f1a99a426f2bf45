#include "audio/endPoint/volume.hpp"

#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/wholeFrames.hpp"
#include "audio/failure.hpp"
#include "utility/fatal.hpp"
#include "utility/rounding.hpp"
#include "utility/vector/kernel/intMedian.hpp"

#include <cmath>
#include <limits>
#include <numeric>

namespace {

int energy(const int* frame, int frameSize) {
    // One deviation of this size alone takes the sum beyond the range of int.
    constexpr std::int64_t largest = 46341;
    const std::int64_t mean = std::accumulate(frame, frame + frameSize, std::int64_t{0}) / frameSize;
    std::int64_t sum = 0;
    for (int i = 0; i < frameSize; ++i) {
        const std::int64_t deviation = std::clamp(frame[i] - mean, -largest, largest);
        sum += deviation * deviation;
    }
    return clampToInt(sum);
}

int logarithm(int value) {
    if (value == 0) return std::numeric_limits<int>::min();
    return truncateToInt(std::log(static_cast<double>(static_cast<float>(value))));
}

} // namespace

template <typename T>
void wave2volume(const int* wave, int waveLen, int frameSize, int overlap, T* volume, int method) {
    const auto perFrame = [=](auto feature) {
        featurePerFrame(wave, waveLen, frameSize, overlap, volume,
                        [=](const int* frame) { return static_cast<T>(feature(frame)); });
    };
    if (method == 1) {
        const auto median = wavepitch::utility::intMedian();
        const auto deviation = wavepitch::endPoint::frameKernel().deviation;
        perFrame([=](const int* frame) {
            return clampToInt(
                deviation(frame, static_cast<std::size_t>(frameSize), median(frame, frameSize)));
        });
    } else if (method == 2) {
        perFrame([=](const int* frame) { return energy(frame, frameSize); });
    } else if (method == 3) {
        perFrame([=](const int* frame) { return logarithm(energy(frame, frameSize)); });
    } else {
        myExitFormatted("Unknown volume method=%d (line %d of file %s)", method, __LINE__, audioSourcePath);
    }
}

template void wave2volume(const int*, int, int, int, int*, int);
template void wave2volume(const int*, int, int, int, double*, int);
