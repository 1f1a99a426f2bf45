// The largest magnitude of all pitch functions of a recording, from few of their values.
//
// ACF: none is larger than the one at lag 0 (A. L. Cauchy's inequality), where sums of products are exact.
// AMDF: with P the sums of the samples' magnitudes up to each place, the sum at lag i of n samples is at most
// P[n - i] + P[n] - P[i]. This bound over the lags is cheap, and only a frame whose bound lies above the
// largest value found so far has its pitch function computed, the most promising frame first.
// Recordings that are not exact in double have all pitch functions computed.
#include "audio/pitchTracking/loudest.hpp"

#include "utility/interruption.hpp"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

namespace wavepitch::pitchTracking {

namespace {

constexpr int framesAtATime = 16;                // in sums of magnitudes
constexpr int valuesAtATime = 1 << 16;           // of pitch functions, and samples
constexpr double exactUpTo = 9007199254740992.0; // 2^53

/// The range of the samples.
struct Range {
    double low = INT_MAX;
    double high = INT_MIN;

    explicit Range(framing::SampleSource& samples) {
        for (int first = 0; first < samples.length(); first += valuesAtATime) {
            const int sampleNum = std::min(valuesAtATime, samples.length() - first);
            const int* wave = samples.read(first, sampleNum);
            const auto [least, most] = std::minmax_element(wave, wave + sampleNum);
            low = std::min<double>(low, *least);
            high = std::max<double>(high, *most);
            if (valuesAtATime > samples.length() - first) return; // the sum would overflow
        }
    }

    double width() const { return high - low; }
    double middle() const { return std::floor((low + high) / 2); }
};

/// Of the frames from first on, with pfLen lags each.
double largestOf(const FramedWave& recording, int first, int frameNum, int pfLen,
                 std::vector<double>& values) {
    values.resize(static_cast<std::size_t>(frameNum) * static_cast<std::size_t>(pfLen));
    const PitchMatrix matrix{values.data(), frameNum, pfLen};
    recording.pitchFunctions(first, matrix);
    return largestMagnitude(matrix);
}

/// Of all frames, blocks of them at a time.
double largestOfAll(const FramedWave& recording, int pfLen) {
    const auto perFrame = std::max<std::ptrdiff_t>(recording.step(), pfLen);
    const auto block = static_cast<int>(std::max<std::ptrdiff_t>(1, valuesAtATime / perFrame));
    std::vector<double> values;
    double largest = 0.0;
    for (int first = 0; first < recording.frameNum; first += block) {
        const int frameNum = std::min(block, recording.frameNum - first);
        largest = std::max(largest, largestOf(recording, first, frameNum, pfLen, values));
    }
    return largest;
}

/// No value of the AMDF of a frame of n samples is larger, the sums of whose magnitudes are given: n + 1 of
/// them, from wherever the summing began.
double amdfBound(const double* sumUpTo, std::size_t n, std::size_t lags) {
    constexpr std::size_t lagsAtATime = 8; // the terms of the first, the divisor of the last
    double bound = 0.0;
    for (std::size_t lag = 0; lag < lags; lag += lagsAtATime) {
        const std::size_t last = std::min(lag + lagsAtATime, lags) - 1;
        const double sum = (sumUpTo[n - lag] - sumUpTo[0]) + (sumUpTo[n] - sumUpTo[lag]);
        bound = std::max(bound, sum / static_cast<double>(n - last));
    }
    return bound;
}

std::vector<double> amdfBounds(const FramedWave& recording, int pfLen, double middle) {
    const auto n = static_cast<std::size_t>(recording.frameSize);
    const std::size_t lags = std::min(n, static_cast<std::size_t>(pfLen));
    std::vector<double> bounds;
    bounds.reserve(static_cast<std::size_t>(recording.frameNum));
    std::vector<double> sumUpTo;
    utility::LongWork work;
    for (int first = 0; first < recording.frameNum; first += framesAtATime) {
        const int frameNum = std::min(framesAtATime, recording.frameNum - first);
        work.took(framesAtATime * (n + lags));
        const int* samples = recording.read(first, frameNum);
        sumUpTo.assign(static_cast<std::size_t>((frameNum - 1) * recording.step()) + n + 1, 0.0);
        for (std::size_t j = 0; j + 1 < sumUpTo.size(); ++j)
            sumUpTo[j + 1] = sumUpTo[j] + std::abs(samples[j] - middle);
        for (int i = 0; i < frameNum; ++i)
            bounds.push_back(amdfBound(sumUpTo.data() + i * recording.step(), n, lags));
    }
    return bounds;
}

/// The most promising frame first; then runs of frames, which take less time than single ones.
double largestAmdf(const FramedWave& recording, int pfLen, double middle) {
    constexpr int longestRun = 64;
    const std::vector<double> bounds = amdfBounds(recording, pfLen, middle);
    const auto promising = std::max_element(bounds.begin(), bounds.end());
    std::vector<double> values;
    double largest = largestOf(recording, static_cast<int>(promising - bounds.begin()), 1, pfLen, values);
    const auto isPromising = [&](int frame) { return bounds[static_cast<std::size_t>(frame)] > largest; };
    for (int first = 0; first < recording.frameNum; ++first) {
        int end = first;
        while (end < recording.frameNum && end - first < longestRun && isPromising(end)) ++end;
        if (end == first) continue;
        largest = std::max(largest, largestOf(recording, first, end - first, pfLen, values));
        first = end - 1;
    }
    return largest;
}

} // namespace

double largestMagnitude(const FramedWave& recording, int pfLen) {
    if (pfLen < 1) return 0.0;
    const Range range(recording.samples);
    const double n = recording.frameSize;
    const double step = static_cast<double>(recording.step());
    if (recording.pfType == PF_ACF && n * range.width() * range.width() <= exactUpTo)
        return largestOfAll(recording, 1);
    if (recording.pfType == PF_AMDF && 2 * (n + framesAtATime * step) * range.width() <= exactUpTo)
        return largestAmdf(recording, pfLen, range.middle());
    return largestOfAll(recording, pfLen);
}

} // namespace wavepitch::pitchTracking
