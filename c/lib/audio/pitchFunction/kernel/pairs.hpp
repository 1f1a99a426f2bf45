// Frames of small ints side by side, two samples to a lane: lane f of vector j is the pair of samples j and
// j + 1 of frame f, 16 bits each. Sums are exact in any order, so that the terms go in pairs; the tile has a
// vector for every j, hence a window for odd lags as well.
#pragma once

#include "audio/pitchFunction/kernel/sums.hpp"

namespace {

/// The smallest and the largest sample.
struct Range {
    int low = INT32_MAX;
    int high = INT32_MIN;

    void include(Range other) {
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
};

/// Whether the samples fit 16 bits and no sum of their terms leaves 32.
inline bool fitsPairs(const Task& task, Range range) {
    const std::int64_t low = range.low;
    const std::int64_t high = range.high;
    const auto n = static_cast<std::int64_t>(task.frameSize);
    const std::int64_t most = task.acf ? (-low > high ? -low : high) : high - low;
    return low >= INT16_MIN && high <= INT16_MAX && most <= INT16_MAX &&
           (task.acf ? most * most : most) * n <= INT32_MAX;
}

/// Rows of n samples and a zero, stride apart, become the tile of pairs; row f becomes lane f.
inline void interleavePairs(const int* const* row, size_t n, Words* tile) {
    size_t j = 0;
    for (; j + wordLanes <= n; j += wordLanes) {
        Words v[wordLanes];
        unrolled<wordLanes>([&](auto f) WAVEPITCH_INLINE {
            const Words first = *reinterpret_cast<const LooseWords*>(row[f] + j);
            const Words second = *reinterpret_cast<const LooseWords*>(row[f] + j + 1);
            v[f] = (first & 0xffff) | (second << 16);
        });
        transpose<std::int32_t>(v);
        unrolled<wordLanes>([&](auto f) WAVEPITCH_INLINE { tile[j + f] = v[f]; });
    }
    for (; j < n; ++j)
        for (size_t f = 0; f < wordLanes; ++f)
            tile[j][f] = static_cast<int>((static_cast<unsigned>(row[f][j]) & 0xffff) |
                                          (static_cast<unsigned>(row[f][j + 1]) << 16));
}

/// Writes lags sums of each of the first frames lanes to pf + lane * stride.
template <size_t lags>
void storePairs(const Task& task, Words* sum, size_t frames, size_t lag, double* pf) {
    double divisor[lags];
    for (size_t k = 0; k < lags; ++k)
        divisor[k] = task.average ? static_cast<double>(task.frameSize - lag - k) : 1.0;
    for (size_t group = 0; group < lags; group += wordLanes) {
        transpose<std::int32_t>(sum + group);
        for (size_t f = 0; f < frames; ++f) {
            double* to = pf + f * task.stride + lag + group;
            for (size_t k = 0; k < wordLanes; ++k) to[k] = sum[group + f][k] / divisor[group + k];
        }
    }
}

/// The pitch functions of the first frames lanes of a tile of pairs; Kind::lags lags or more.
template <typename Kind>
void sumPairs(const Task& task, const Words* tile, size_t frames, double* pf) {
    const Kind kind;
    forLagBlocks<Kind::lags>(task, [&](size_t lag, size_t) {
        Words sum[Kind::lags] = {};
        const auto first = [&](size_t j) WAVEPITCH_INLINE { return tile[j]; };
        const size_t done = addToAll(kind, first, tile + lag, termsAt(task, lag + Kind::lags - 1), sum);
        for (size_t k = 0; k < Kind::lags; ++k) {
            const size_t terms = termsAt(task, lag + k);
            size_t j = done;
            for (; j + 2 <= terms; j += 2) kind.add(sum[k], tile[j], tile[j + lag + k]);
            if (j < terms) kind.addFirst(sum[k], tile[j], tile[j + lag + k]);
        }
        storePairs<Kind::lags>(task, sum, frames, lag, pf);
    });
}

} // namespace
