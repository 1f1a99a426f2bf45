// Frames side by side: lane f of vector j is sample j of frame f. A tile of lanes frames is transposed in,
// each lane goes through its frame as a plain loop would, and the sums are transposed out.
#pragma once

#include "audio/pitchFunction/kernel/transpose.hpp"

namespace {

constexpr size_t tileLags = 8; // sums that one pass keeps in registers

/// Row l of samples becomes lane l of the tile.
template <typename Sample>
void interleave(const Sample* const* row, size_t n, Doubles* tile) {
    size_t j = 0;
    for (; j + lanes <= n; j += lanes) {
        Doubles v[lanes];
        unrolled<lanes>([&](auto l) WAVEPITCH_INLINE { v[l] = loadDoubles(row[l] + j); });
        transpose(v);
        unrolled<lanes>([&](auto l) WAVEPITCH_INLINE { tile[j + l] = v[l]; });
    }
    for (; j < n; ++j)
        for (size_t l = 0; l < lanes; ++l) tile[j][l] = static_cast<double>(row[l][j]);
}

/// Writes the first kept of tileLags sums of each of the first frames lanes to pf + lane * stride.
inline void store(Doubles* sum, size_t frames, size_t kept, double* pf, size_t stride) {
    for (size_t group = 0; group < tileLags; group += lanes) {
        transpose(sum + group);
        for (size_t f = 0; f < frames; ++f) {
            double* to = pf + f * stride + group;
            if (group + lanes <= kept)
                __builtin_memcpy(to, &sum[group + f], sizeof(Doubles));
            else
                for (size_t k = 0; group + k < kept; ++k) to[k] = sum[group + f][k];
        }
    }
}

/// add(k, tile[j], window[j + k]) for all k below tileLags and j from 0 up to terms in steps, as far as whole
/// rounds of unroll steps go. Returns the j where it ended. A loaded window[m] serves all the steps that it
/// is part of: step q needs it for k = m - q, and with m rising each sum still takes its terms in the order
/// of j.
template <size_t step, size_t unroll, typename Vector, typename Add>
WAVEPITCH_INLINE inline size_t addToAll(const Vector* tile, const Vector* window, size_t terms,
                                        const Add& add) {
    constexpr size_t advance = unroll * step;
    size_t j = 0;
    for (; j + advance <= terms; j += advance) {
        const Vector* w = window + j;
        asm("" : "+r"(w)); // or the compiler carries vectors from round to round, and the sums to memory
        Vector x[unroll];
        unrolled<unroll>([&](auto q) WAVEPITCH_INLINE { x[q] = tile[j + q * step]; });
        unrolled<tileLags + advance - step>([&](auto m) WAVEPITCH_INLINE {
            const Vector b = w[m];
            unrolled<unroll>([&](auto q) WAVEPITCH_INLINE {
                constexpr size_t k = m.value - q.value * step; // wraps below 0
                if constexpr (k < tileLags) add(Constant<k>{}, x[q], b);
            });
        });
    }
    return j;
}

/// The pitch functions of the first frames lanes of a tile.
template <typename Kind>
void sumFrames(const Task& task, const Doubles* tile, size_t frames, double* pf) {
    const Kind kind;
    for (size_t lag = 0; lag < task.lags; lag += tileLags) {
        askInLongFrame(task);
        Doubles sum[tileLags] = {};
        const size_t done = addToAll<1, Kind::unroll>(tile, tile + lag, termsAt(task, lag + tileLags - 1),
                                                      [&](auto k, Doubles a, Doubles b)
                                                          WAVEPITCH_INLINE { sum[k] += kind.term(a, b); });
        for (size_t k = 0; k < tileLags; ++k) {
            const size_t terms = termsAt(task, lag + k);
            for (size_t j = done; j < terms; ++j) sum[k] += kind.term(tile[j], tile[j + lag + k]);
            if (task.average) sum[k] /= divisorAt(task, lag + k);
        }
        store(sum, frames, task.lags - lag, pf + lag, task.stride);
    }
}

} // namespace
