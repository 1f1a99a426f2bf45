// Lags side by side, for calls of few frames: lane l of a block of lags has the lag that is l * Kind::lags
// further. Lane l of vector m is sample m + l * Kind::lags of the one frame, so that the lags in a lane
// follow one another and the loop is that of frames side by side, with sample j in every lane against a
// sliding window. Lanes whose lag has run out of terms before the others are masked.
#pragma once

#include "audio/pitchFunction/kernel/framesAcross.hpp"

namespace {

/// Lanes with a bit set in front: activeLanes.mask[i] has the first i lanes.
struct ActiveLanes {
    constexpr ActiveLanes() {
        for (size_t count = 0; count <= lanes; ++count)
            for (size_t l = 0; l < lanes; ++l) mask[count][l] = l < count ? -1 : 0;
    }
    Bits first(size_t count) const { return *reinterpret_cast<const Bits*>(mask[count]); }

    alignas(vectorBytes) std::int64_t mask[lanes + 1][lanes] = {};
};

constexpr ActiveLanes activeLanes;

/// Samples behind the frame that shiftFrame reads, and vectors behind it that it writes.
template <typename Kind>
constexpr size_t padding = lanes* Kind::lags;

/// The frame in one lane of a tile becomes shifted, frameSize + Kind::lags vectors; line has room for
/// frameSize + padding samples.
template <typename Kind>
void shiftFrame(const Task& task, const Doubles* tile, size_t lane, double* line, Doubles* shifted) {
    const size_t n = task.frameSize;
    const double* sample = reinterpret_cast<const double*>(tile) + lane;
    for (size_t j = 0; j < n; ++j) line[j] = sample[j * lanes];
    for (size_t j = n; j < n + padding<Kind>; ++j) line[j] = 0.0;
    const double* row[lanes];
    for (size_t l = 0; l < lanes; ++l) row[l] = line + l * Kind::lags;
    interleave(row, n + Kind::lags, shifted);
}

/// The terms from j on, where the lanes' lags run out of terms one after the other.
template <typename Kind>
WAVEPITCH_INLINE inline void addWhereInside(const Kind& kind, const Task& task, const double* line,
                                            const Doubles* shifted, size_t lag, size_t j, Doubles* sum) {
    const size_t terms = termsAt(task, lag);
    for (; j < terms; ++j) {
        const size_t left = task.frameSize - 1 - lag - j; // samples behind the one at this lag
        const Doubles first = broadcast(line[j]);
        unrolled<Kind::lags>([&](auto k) WAVEPITCH_INLINE {
            const Bits active = activeLanes.first((left + Kind::lags - k) / Kind::lags);
            kind.addIn(active, sum[k], first, shifted[j + lag + k]);
        });
    }
}

/// The pitch function of the frame in line and shifted.
template <typename Kind>
void sumLags(const Task& task, const double* line, const Doubles* shifted, double* pf) {
    constexpr size_t blockLags = lanes * Kind::lags;
    const Kind kind;
    forLagBlocks<blockLags>(task, [&](size_t lag, size_t kept) {
        Doubles sum[Kind::lags] = {};
        const auto first = [&](size_t j) WAVEPITCH_INLINE { return broadcast(line[j]); };
        const size_t done = addToAll(kind, first, shifted + lag, termsAt(task, lag + blockLags - 1), sum);
        addWhereInside(kind, task, line, shifted, lag, done, sum);
        double value[blockLags];
        store<Kind::lags>(sum, lanes, Kind::lags, value, Kind::lags);
        for (size_t k = 0; k < kept; ++k)
            pf[lag + k] = task.average ? value[k] / static_cast<double>(task.frameSize - lag - k) : value[k];
    });
}

} // namespace
