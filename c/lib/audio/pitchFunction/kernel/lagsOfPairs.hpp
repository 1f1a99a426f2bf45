// Frames of small ints, lags side by side as in lagsAcross.hpp, but two terms to each lane: lane l of sum k
// has the lag k + l * pairRows of a block, and a lane of the window is the pair of samples that the lag needs
// for two terms. Nothing is masked: what stands behind the frame adds nothing, or what is known.
#pragma once

#include "audio/pitchFunction/kernel/pairs.hpp"
#include "audio/pitchFunction/kernel/transpose.hpp"

namespace {

constexpr size_t pairRows = ownBytes == 64 ? 8 : 4;
constexpr size_t blockOfPairs = wordLanes * pairRows;
constexpr size_t behindPairs = blockOfPairs + 2; // samples behind the frame that are read

/// A block's sums in the order of their lags.
inline void storeSums(const NarrowSum* sum, std::int64_t* value) {
    Words row[pairRows];
    for (size_t k = 0; k < pairRows; ++k) row[k] = sum[k].sum;
    storeRows<pairRows>(row, value);
}

inline void storeSums(const WideSum* sum, std::int64_t* value) {
    UnsignedWords low[pairRows];
    Words high[pairRows];
    for (size_t k = 0; k < pairRows; ++k) low[k] = sum[k].low;
    for (size_t k = 0; k < pairRows; ++k) high[k] = sum[k].high;
    std::int64_t above[blockOfPairs];
    storeRows<pairRows>(low, value);
    storeRows<pairRows>(high, above);
    for (size_t i = 0; i < blockOfPairs; ++i) {
        above[i] *= 65536;
        value[i] = above[i] + ((value[i] - above[i]) & 0xffffffff);
    }
}

inline std::int32_t pairAt(const std::int16_t* x) {
    std::int32_t pair;
    __builtin_memcpy(&pair, x, sizeof pair);
    return pair;
}

/// The sums of the block of lags from lag on, in the order of the lags.
template <typename Kind>
WAVEPITCH_INLINE inline void sumBlockOfPairs(const Task& task, const std::int16_t* line, size_t lag,
                                             std::int64_t* value) {
    const size_t terms = termsAt(task, lag);
    typename Kind::Sum sum[pairRows] = {};
    Words window[pairRows] = {};
    startWindow<pairRows>(line + lag, window);
    const auto step = [&](auto q, const std::int16_t* at, std::int32_t mask) WAVEPITCH_INLINE {
        const Words first = Words{} + pairAt(at);
        unrolled<pairRows>([&](auto k) WAVEPITCH_INLINE {
            sum[k].add(Kind::terms(first, window[(q + k) % pairRows], mask));
        });
        unrolled<2>([&](auto k) WAVEPITCH_INLINE {
            window[q + k] = shifted(window[q + k], Words{} + pairAt(at + k + lag + blockOfPairs));
        });
    };
    size_t j = 0;
    for (; j + pairRows <= terms; j += pairRows)
        unrolled<pairRows / 2>(
            [&](auto q) WAVEPITCH_INLINE { step(Constant<2 * q.value>{}, line + j + 2 * q, both); });
    unrolled<pairRows / 2>([&](auto q) WAVEPITCH_INLINE {
        if (j + 2 * q >= terms) return;
        step(Constant<2 * q.value>{}, line + j + 2 * q, j + 2 * q + 1 < terms ? both : firstOnly);
    });
    storeSums(sum, value);
}

/// From a block's sums of maxima to sums of differences.
class Differences {
public:
    Differences(const Task& whole, const std::int16_t* frame) : task(whole), line(frame) {
        for (size_t j = 0; j < termsAt(task, 0); ++j) first += line[j];
        second = first;
    }

    /// All lags of the block were summed over the terms of its first one: behind the frame stood the maximum.
    void replace(size_t lag, std::int64_t* value) {
        const std::int64_t firstOfBlock = first;
        for (size_t i = 0; i < blockOfPairs && lag + i < task.lags; ++i) {
            value[i] = 2 * (value[i] - firstOfBlock) + first - second;
            moveOn(lag + i);
        }
    }

private:
    void moveOn(size_t lag) {
        const size_t terms = termsAt(task, lag);
        second -= line[lag];
        if (termsAt(task, lag + 1) == terms)
            second += line[lag + terms];
        else
            first -= line[terms - 1];
    }

    const Task& task;
    const std::int16_t* line;
    std::int64_t first = 0;  // sum of x[j] over the terms of a lag
    std::int64_t second = 0; // sum of x[j + lag]
};

/// The pitch function of a row of samples; line has room for frameSize + behindPairs samples.
template <typename Kind>
void sumLagsOfPairs(const Task& task, const int* row, std::int16_t* line, double* pf) {
    for (size_t j = 0; j < task.frameSize; ++j) line[j] = static_cast<std::int16_t>(row[j]);
    for (size_t j = 0; j < behindPairs; ++j) line[task.frameSize + j] = Kind::behind;
    Differences differences(task, line);
    for (size_t lag = 0; lag < task.lags; lag += blockOfPairs) {
        askInLongFrame(task);
        std::int64_t value[blockOfPairs];
        sumBlockOfPairs<Kind>(task, line, lag, value);
        if (!task.acf) differences.replace(lag, value);
        const size_t kept = task.lags - lag < blockOfPairs ? task.lags - lag : blockOfPairs;
        for (size_t i = 0; i < kept; ++i) pf[lag + i] = static_cast<double>(value[i]);
    }
    average(task, pf);
}

} // namespace
