// Frames side by side: lane f of vector j is sample j of frame f. A tile of lanes frames is transposed in,
// each lane goes through its frame as a plain loop would, and the sums are transposed out.
#pragma once

#include "audio/pitchFunction/kernel/sums.hpp"

namespace {

/// Row l of samples becomes lane l of the tile.
template <typename Sample>
void interleave(const Sample* const* row, size_t n, Doubles* tile) {
    size_t j = 0;
    for (; j + lanes <= n; j += lanes) {
        Doubles v[lanes];
        unrolled<lanes>([&](auto l) WAVEPITCH_INLINE { v[l] = loadDoubles(row[l] + j); });
        transpose<double>(v);
        unrolled<lanes>([&](auto l) WAVEPITCH_INLINE { tile[j + l] = v[l]; });
    }
    for (; j < n; ++j)
        for (size_t l = 0; l < lanes; ++l) tile[j][l] = static_cast<double>(row[l][j]);
}

inline Doubles meanOf(const Doubles* x, size_t n) {
    Doubles sum = {};
    for (size_t j = 0; j < n; ++j) sum += x[j];
    return sum / static_cast<double>(n);
}

/// cAudio::frameFlip in each lane.
inline void flipLanes(Doubles* x, size_t n) {
    const Bits withoutSign = Bits{} + Amdf::withoutSign;
    const Doubles mean = meanOf(x, n);
    const size_t half = n / 2;
    Doubles first = {};
    Doubles second = {};
    for (size_t j = 0; j < half; ++j) {
        first += maskedBy(withoutSign, x[j] - mean);
        second += maskedBy(withoutSign, x[half + j] - mean);
    }
    if (n % 2) second += maskedBy(withoutSign, x[n - 1] - mean);
    const Bits livelier = second > first;
    for (size_t j = 0; j < half; ++j) {
        const Doubles front = x[j];
        const Doubles back = x[n - 1 - j];
        x[j] = livelier ? back : front;
        x[n - 1 - j] = livelier ? front : back;
    }
}

inline void subtractMeans(Doubles* x, size_t n) {
    const Doubles mean = meanOf(x, n);
    for (size_t j = 0; j < n; ++j) x[j] -= mean;
}

/// Writes the first kept of lags sums of each of the first rows lanes to pf + lane * stride.
template <size_t lags>
void store(Doubles* sum, size_t rows, size_t kept, double* pf, size_t stride) {
    for (size_t group = 0; group < lags; group += lanes) {
        transpose<double>(sum + group);
        for (size_t row = 0; row < rows; ++row) {
            double* to = pf + row * stride + group;
            if (group + lanes <= kept)
                *reinterpret_cast<LooseDoubles*>(to) = sum[group + row];
            else
                for (size_t k = group; k < kept; ++k) to[k - group] = sum[group + row][k - group];
        }
    }
}

/// The pitch functions of the first frames lanes of a tile.
template <typename Kind>
void sumFrames(const Task& task, const Doubles* tile, size_t frames, double* pf) {
    const Kind kind;
    forLagBlocks<Kind::lags>(task, [&](size_t lag, size_t kept) {
        Doubles sum[Kind::lags] = {};
        const auto first = [&](size_t j) WAVEPITCH_INLINE { return tile[j]; };
        const size_t done = addToAll(kind, first, tile + lag, termsAt(task, lag + Kind::lags - 1), sum);
        for (size_t k = 0; k < Kind::lags; ++k) {
            const size_t terms = termsAt(task, lag + k);
            for (size_t j = done; j < terms; ++j) kind.add(sum[k], tile[j], tile[j + lag + k]);
            if (task.average) sum[k] /= static_cast<double>(task.frameSize) - static_cast<double>(lag + k);
        }
        store<Kind::lags>(sum, frames, kept, pf + lag, task.stride);
    });
}

} // namespace
