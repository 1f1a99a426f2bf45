// The terms of the pitch functions, and the loop that sums them: several lags at a time, each in a register
// of its own and in the order of its terms, while the window of samples slides by.
#pragma once

#include "audio/pitchFunction/kernel/kernel.hpp"
#include "audio/pitchFunction/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

using wavepitch::pitchFunction::Task;

inline Doubles maskedBy(Bits mask, Doubles x) {
    return reinterpret_cast<Doubles>(reinterpret_cast<Bits>(x) & mask);
}

/// A kind of term: Vector holds step consecutive samples of each lane, lags is the number of sums that one
/// pass keeps in registers, unroll the number of its steps that share a window.
struct Acf {
    using Vector = Doubles;
    static constexpr size_t step = 1, lags = 8, unroll = 4;

    WAVEPITCH_INLINE void add(Doubles& sum, Doubles a, Doubles b) const { sum += a * b; }

    /// Adds in the lanes of the mask; the others gain +0, which changes no sum that started from +0.
    WAVEPITCH_INLINE void addIn(Bits mask, Doubles& sum, Doubles a, Doubles b) const {
        sum += maskedBy(mask, a * b);
    }
};

struct Amdf {
    using Vector = Doubles;
    static constexpr size_t step = 1, lags = 8, unroll = 2;
    static constexpr std::int64_t withoutSign = 0x7fffffffffffffff;

    WAVEPITCH_INLINE Amdf() {
#if defined(WAVEPITCH_MULTIPLY_SUBTRACT)
        asm("" : "+v"(one)); // or the compiler turns 1 * a - b back into a - b
#endif
    }

    /// a - b. 1 * a - b in one operation rounds the same, and runs where the processor multiplies: the
    /// additions of the sums keep theirs to themselves.
    WAVEPITCH_INLINE Doubles difference(Doubles a, Doubles b) const {
#if defined(WAVEPITCH_MULTIPLY_SUBTRACT)
        return WAVEPITCH_MULTIPLY_SUBTRACT(one, a, b);
#else
        return a - b;
#endif
    }

    WAVEPITCH_INLINE void add(Doubles& sum, Doubles a, Doubles b) const {
        sum += maskedBy(Bits{} + withoutSign, difference(a, b));
    }

    WAVEPITCH_INLINE void addIn(Bits mask, Doubles& sum, Doubles a, Doubles b) const {
        sum += maskedBy(mask & withoutSign, difference(a, b));
    }

    Doubles one = broadcast(1.0);
};

/// Pairs of 16-bit samples, the sums in 32 bits: for samples so small that no sum leaves them.
struct AcfOfPairs {
    using Vector = Words;
    static constexpr size_t step = 2, lags = wordLanes < 8 ? 8 : wordLanes, unroll = 4;

    WAVEPITCH_INLINE void add(Words& sum, Words a, Words b) const { sum += multiplyAdd(a, b); }
    /// Adds the first sample of each pair only.
    WAVEPITCH_INLINE void addFirst(Words& sum, Words a, Words b) const { sum += multiplyAdd(a & 0xffff, b); }
};

struct AmdfOfPairs {
    using Vector = Words;
    static constexpr size_t step = 2, lags = wordLanes < 8 ? 8 : wordLanes, unroll = 4;

    WAVEPITCH_INLINE Words distance(Words a, Words b) const {
        return magnitude(reinterpret_cast<Words>(reinterpret_cast<Shorts>(a) - reinterpret_cast<Shorts>(b)));
    }
    WAVEPITCH_INLINE void add(Words& sum, Words a, Words b) const {
        sum += multiplyAdd(distance(a, b), Words{} + 0x00010001);
    }
    WAVEPITCH_INLINE void addFirst(Words& sum, Words a, Words b) const { sum += distance(a, b) & 0xffff; }
};

/// The terms of a lag; none for lags of frameSize and more.
inline size_t termsAt(const Task& task, size_t lag) {
    const size_t inside = lag < task.frameSize ? task.frameSize - lag : 0;
    return inside < task.maxTerms ? inside : task.maxTerms;
}

/// sum[k] += term(first(j), window[j + k]) for all k < lags and j from 0 up to terms, as far as whole steps
/// go. Returns the j where it ended. A loaded window[m] serves all the steps that it is part of: step q needs
/// it for k = m - q, and with m rising each sum still takes its terms in the order of j.
template <typename Kind, typename First, typename Vector = typename Kind::Vector>
WAVEPITCH_INLINE inline size_t addToAll(const Kind& kind, const First& first, const Vector* window,
                                        size_t terms, Vector* sum) {
    constexpr size_t advance = Kind::unroll * Kind::step;
    size_t j = 0;
    for (; j + advance <= terms; j += advance) {
        const Vector* w = window + j;
        asm("" : "+r"(w)); // or the compiler carries vectors from round to round, and the sums to memory
        Vector x[Kind::unroll];
        unrolled<Kind::unroll>([&](auto q) WAVEPITCH_INLINE { x[q] = first(j + q * Kind::step); });
        unrolled<Kind::lags + advance - Kind::step>([&](auto m) WAVEPITCH_INLINE {
            const Vector b = w[m];
            unrolled<Kind::unroll>([&](auto q) WAVEPITCH_INLINE {
                constexpr size_t k = m.value - q.value * Kind::step; // wraps below 0
                if constexpr (k < Kind::lags) kind.add(sum[k], x[q], b);
            });
        });
    }
    for (; j + Kind::step <= terms; j += Kind::step)
        unrolled<Kind::lags>([&](auto k) WAVEPITCH_INLINE { kind.add(sum[k], first(j), window[j + k]); });
    return j;
}

/// Calls block(lag, kept) for blocks of blockLags lags that cover all lags of the task; kept is the number of
/// lags that count in the block. The last block reaches back over lags already done, if there are as many.
template <size_t blockLags, typename Block>
WAVEPITCH_INLINE inline void forLagBlocks(const Task& task, const Block& block) {
    if (task.lags < blockLags) return block(0, task.lags);
    size_t lag = 0;
    for (; lag + blockLags <= task.lags; lag += blockLags) block(lag, blockLags);
    if (lag < task.lags) block(task.lags - blockLags, blockLags);
}

} // namespace
