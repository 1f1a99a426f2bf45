// Lags side by side, for calls of few frames: lane l of sum k has the lag k + l * lagRows of a block of lags.
// The samples that a term needs, x[j + lag], then lie in vectors of which lane l is lagRows samples further
// than lane l - 1. Such a vector is what another one becomes lagRows samples later, when its lanes move down
// by one and a new sample enters at the top. A window of lagRows of them stands in registers; they are stored
// for all blocks of a frame of common length, and made anew for each block of a long one. Lanes whose lag has
// run out of terms before the others are masked, and the masks move in the same way.
#pragma once

#include "audio/pitchFunction/kernel/straight.hpp"
#include "audio/pitchFunction/kernel/transpose.hpp"

namespace {

constexpr size_t lagRows = ownBytes == 64 ? 8 : 6; // as many as hide an addition's latency, and fit
constexpr size_t blockLags = lanes * lagRows;      // also the samples behind the frame that are read

/// Vectors of the window, each made from the one lagRows before it.
struct Moving {
    WAVEPITCH_INLINE Doubles operator()(Doubles before, size_t m) const {
        return shifted(before, broadcast(line[m + blockLags - lagRows]));
    }

    const double* line;
};

/// Vectors of the window, stored.
struct Stored {
    WAVEPITCH_INLINE Doubles operator()(Doubles /*before*/, size_t m) const { return window[m]; }

    const Doubles* window;
};

constexpr size_t longestStored = 16384; // samples

/// Vectors that are stored for a frame.
inline size_t storedVectors(const Task& task) {
    return task.lags > blockLags && task.frameSize <= longestStored ? task.frameSize + lagRows : 0;
}

/// The lanes whose lags still have terms. The others gain nothing, or +0, which changes no sum that started
/// from +0.
class Inside {
public:
    /// Those of sum k, where so many lags of the block have.
    WAVEPITCH_INLINE void start(size_t k, size_t left) {
        for (size_t l = 0; l < lanes; ++l) enterAtTop(k + l * lagRows < left);
    }

#if defined(__AVX512F__) && WAVEPITCH_VECTOR_BYTES == 64
    WAVEPITCH_INLINE void add(Doubles& sum, Doubles term) const {
        sum = _mm512_mask_add_pd(sum, static_cast<__mmask8>(mask), sum, term);
    }

    /// Every lane takes what the next one has.
    WAVEPITCH_INLINE void enterAtTop(bool top) {
        mask = mask >> 1 | (top ? 128U : 0U);
    }

private:
    unsigned mask = 0;
#else
    WAVEPITCH_INLINE void add(Doubles& sum, Doubles term) const {
        sum += maskedBy(mask, term);
    }

    /// Every lane takes what the next one has.
    WAVEPITCH_INLINE void enterAtTop(bool top) {
        mask = shifted(mask, Bits{} - (top ? 1 : 0));
    }

private:
    Bits mask = {};
#endif
};

/// The sums of the block of lags from lag on. line is the frame with blockLags zeros behind it.
template <typename Kind, typename Next>
WAVEPITCH_INLINE inline void sumBlock(const Kind& kind, const Next& next, const Task& task,
                                      const double* line, size_t lag, Doubles* sum) {
    const size_t common = termsAt(task, lag + blockLags - 1);
    const size_t terms = termsAt(task, lag);
    Doubles window[lagRows] = {};
    startWindow<lagRows>(line + lag, window);
    size_t j = 0;
    for (; j + lagRows <= common; j += lagRows)
        unrolled<lagRows>([&](auto q) WAVEPITCH_INLINE {
            const Doubles x = broadcast(line[j + q]);
            unrolled<lagRows>([&](auto k)
                                  WAVEPITCH_INLINE { sum[k] += kind.term(x, window[(q + k) % lagRows]); });
            window[q] = next(window[q], j + q + lag + lagRows);
            unrolled<lagRows>([&](auto k) WAVEPITCH_INLINE { settle(sum[k]); });
        });
    Inside inside[lagRows];
    for (size_t k = 0; k < lagRows; ++k) inside[k].start(k, task.frameSize - lag - j);
    for (; j < terms; j += lagRows)
        unrolled<lagRows>([&](auto q) WAVEPITCH_INLINE {
            if (j + q >= terms) return;
            const Doubles x = broadcast(line[j + q]);
            unrolled<lagRows>([&](auto k) WAVEPITCH_INLINE {
                constexpr size_t row = (q.value + k.value) % lagRows;
                inside[row].add(sum[k], kind.term(x, window[row]));
            });
            unrolled<lagRows>([&](auto k) WAVEPITCH_INLINE { settle(sum[k]); });
            window[q] = next(window[q], j + q + lag + lagRows);
            inside[q].enterAtTop(j + q + lag + blockLags < task.frameSize);
        });
}

template <typename Kind, typename Next>
void sumBlocks(const Task& task, const double* line, const Next& next, double* pf) {
    const Kind kind;
    size_t lag = 0;
    for (; lag + lanes < task.lags; lag += blockLags) {
        askInLongFrame(task);
        Doubles sum[lagRows] = {};
        sumBlock(kind, next, task, line, lag, sum);
        double value[blockLags];
        storeRows<lagRows>(sum, value);
        const size_t kept = task.lags - lag < blockLags ? task.lags - lag : blockLags;
        for (size_t i = 0; i < kept; ++i) pf[lag + i] = value[i];
    }
    if (lag < task.lags) sumStraightFrom(kind, task, line, lag, pf);
    average(task, pf);
}

/// The pitch function of the frame in line; stored has room for storedVectors.
template <typename Kind>
void sumLags(const Task& task, const double* line, Doubles* stored, double* pf) {
    const size_t vectors = storedVectors(task);
    const Moving moving{line};
    if (vectors == 0) return sumBlocks<Kind>(task, line, moving, pf);
    startWindow<lagRows>(line, stored);
    for (size_t m = lagRows; m < vectors; ++m) stored[m] = moving(stored[m - lagRows], m);
    sumBlocks<Kind>(task, line, Stored{stored}, pf);
}

} // namespace
