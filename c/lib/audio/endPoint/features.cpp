#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"

#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/failure.hpp"
#include "audio/framing/wholeFrames.hpp"
#include "utility/fatal.hpp"
#include "utility/rounding.hpp"
#include "utility/vector/kernel/intMedian.hpp"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <numeric>

#include "mex.h"

namespace {

using wavepitch::endPoint::FrameKernel;
using wavepitch::endPoint::frameKernel;
using wavepitch::framing::featurePerFrame;

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

/// Does not return for an order that is not from 1 to 5.
void checkOrder(int order) {
    if (order >= 1 && order <= 5) return;
    mexPrintf("Unsupported order!\n");
    std::exit(1);
}

int ashodOf(const int* frame, int frameSize, int order, const FrameKernel& kernel) {
    return clampToInt(kernel.differences(frame, static_cast<std::size_t>(frameSize), order));
}

} // namespace

void wavepitch::endPoint::findVolumes(framing::SampleSource& wave, FrameLayout frames, int* volume) {
    const int frameSize = frames.frameSize;
    const auto median = utility::intMedian();
    const auto deviation = frameKernel().deviation;
    featurePerFrame(wave, frameSize, frames.overlap, volume, [=](const int* frame) {
        return clampToInt(deviation(frame, static_cast<std::size_t>(frameSize), median(frame, frameSize)));
    });
}

void wavepitch::endPoint::findAshods(framing::SampleSource& wave, FrameLayout frames, int order, int* ashod) {
    const int frameSize = frames.frameSize;
    if (framing::wholeFrameNum(wave.length(), frameSize, frames.overlap) == 0) return;
    checkOrder(order);
    const FrameKernel kernel = frameKernel();
    featurePerFrame(wave, frameSize, frames.overlap, ashod,
                    [&](const int* frame) { return ashodOf(frame, frameSize, order, kernel); });
}

template <typename T>
void wave2volume(const int* wave, int waveLen, int frameSize, int overlap, T* volume, int method) {
    const auto perFrame = [=](auto feature) {
        featurePerFrame(wave, waveLen, frameSize, overlap, volume, feature);
    };
    if (method == 1) {
        wavepitch::framing::IntSamples samples(wave, waveLen);
        wavepitch::endPoint::findVolumes(samples, {frameSize, overlap}, volume);
    } else if (method == 2) {
        perFrame([=](const int* frame) { return energy(frame, frameSize); });
    } else if (method == 3) {
        perFrame([=](const int* frame) { return logarithm(energy(frame, frameSize)); });
    } else {
        myExitFormatted("Unknown volume method=%d (line %d of file %s)", method, __LINE__, audioSourcePath);
    }
}

template <typename T>
T frame2ashod(const T* frame, int frameSize, int order) {
    checkOrder(order);
    return frameSize <= order ? 0 : ashodOf(frame, frameSize, order, frameKernel());
}

template void wave2volume(const int*, int, int, int, int*, int);
template int frame2ashod(const int*, int, int);

void cAudioEndPoint::wave2ashod(const int* wave, int waveLen, int frameSize, int overlap, int* ashod,
                                int order) {
    wavepitch::framing::IntSamples samples(wave, waveLen);
    wavepitch::endPoint::findAshods(samples, {frameSize, overlap}, order, ashod);
}

void cAudioEndPoint::wave2zcr(const int* wave, int waveLen, int frameSize, int overlap, int* zcr) {
    const auto crossings = frameKernel().crossings;
    featurePerFrame(wave, waveLen, frameSize, overlap, zcr,
                    [=](const int* frame) { return crossings(frame, static_cast<std::size_t>(frameSize)); });
}

void cAudioEndPoint::localAverage(int* x, int n) {
    if (n < 3) return;
    int before = x[0];
    for (int i = 1; i < n - 1; ++i) {
        const std::int64_t sum = std::int64_t{intDiv(before, 4)} + intDiv(x[i], 2) + intDiv(x[i + 1], 4);
        before = x[i];
        x[i] = clampToInt(sum);
    }
}
