// Frames of small ints side by side, two terms to each lane: lane f of vector j is the pair of samples j and
// j + 1 of frame f; the tile has a vector for every j, hence a window for odd lags as well.
#pragma once

#include "audio/pitchFunction/kernel/framesAcross.hpp"
#include "audio/pitchFunction/kernel/pairs.hpp"

namespace {

/// Rows of n samples and one more that is no matter become the tile of pairs; row f becomes lane f.
inline void interleavePairs(const int* const* row, size_t n, Words* tile) {
    size_t j = 0;
    for (; j + wordLanes <= n; j += wordLanes) {
        Words v[wordLanes];
        unrolled<wordLanes>([&](auto f) WAVEPITCH_INLINE {
            v[f] = (load<int, ownBytes>(row[f] + j) & 0xffff) | (load<int, ownBytes>(row[f] + j + 1) << 16);
        });
        transpose(v);
        unrolled<wordLanes>([&](auto f) WAVEPITCH_INLINE { tile[j + f] = v[f]; });
    }
    for (; j < n; ++j)
        for (size_t f = 0; f < wordLanes; ++f)
            tile[j][f] = static_cast<int>((static_cast<unsigned>(row[f][j]) & 0xffff) |
                                          (static_cast<unsigned>(row[f][j + 1]) << 16));
}

/// The first and the second half of the lanes.
template <typename Vector>
inline void toDoubles(Vector x, Doubles* half) {
    Lanes<std::remove_reference_t<decltype(x[0])>, ownBytes / 2> halves[2];
    __builtin_memcpy(halves, &x, sizeof x);
    for (size_t h = 0; h < 2; ++h) half[h] = __builtin_convertvector(halves[h], Doubles);
}

inline void toDoubles(const NarrowSum& x, Doubles* half) {
    toDoubles(x.sum, half);
}

inline void toDoubles(const WideSum& x, Doubles* half) {
    Doubles rest[2];
    toDoubles(x.high, half);
    toDoubles(x.low - (reinterpret_cast<UnsignedWords>(x.high) << 16), rest);
    for (size_t h = 0; h < 2; ++h) half[h] = half[h] * 65536.0 + rest[h];
}

/// The sums of the samples that meet at a lag, in each lane, modulo 2^32; lag after lag.
class SamplesOfTerms {
public:
    SamplesOfTerms(const Task& whole, const Words* pairs) : task(whole), tile(pairs) {
        for (size_t j = 0; j < termsAt(task, 0); ++j) sum += 2 * sample(j);
    }

    UnsignedWords atLag() const { return sum; }

    void moveOn(size_t lag) {
        const size_t terms = termsAt(task, lag);
        sum -= sample(lag);
        if (termsAt(task, lag + 1) == terms)
            sum += lag + terms < task.frameSize ? sample(lag + terms) : UnsignedWords{};
        else
            sum -= sample(terms - 1);
    }

private:
    UnsignedWords sample(size_t j) const { return reinterpret_cast<UnsignedWords>((tile[j] << 16) >> 16); }

    const Task& task;
    const Words* tile;
    UnsignedWords sum = {};
};

/// The sums of tileLags lags from lag on.
template <typename Kind>
WAVEPITCH_INLINE inline void sumLagsOfTile(const Task& task, const Words* tile, size_t lag,
                                           typename Kind::Sum* sum) {
    const size_t done = addToAll<2, 4>(tile, tile + lag, termsAt(task, lag + tileLags - 1),
                                       [&](auto k, Words a, Words b)
                                           WAVEPITCH_INLINE { sum[k].add(Kind::terms(a, b, both)); });
    for (size_t k = 0; k < tileLags; ++k) {
        const size_t terms = termsAt(task, lag + k);
        for (size_t j = done; j < terms; j += 2)
            sum[k].add(Kind::terms(tile[j], tile[j + lag + k], j + 1 < terms ? both : firstOnly));
    }
}

/// The pitch functions of the first frames lanes of a tile of pairs.
template <typename Kind>
void sumFramesOfPairs(const Task& task, const Words* tile, size_t frames, double* pf) {
    SamplesOfTerms samples(task, tile);
    for (size_t lag = 0; lag < task.lags; lag += tileLags) {
        askInLongFrame(task);
        typename Kind::Sum sum[tileLags] = {};
        sumLagsOfTile<Kind>(task, tile, lag, sum);
        Doubles value[2][tileLags];
        for (size_t k = 0; k < tileLags; ++k) {
            Doubles half[2];
            toDoubles(sum[k], half);
            if (!task.acf && lag + k < task.lags) {
                toDoubles(2 * sum[k].lowBits() - samples.atLag(), half);
                samples.moveOn(lag + k);
            }
            for (size_t h = 0; h < 2; ++h)
                value[h][k] = task.average ? half[h] / divisorAt(task, lag + k) : half[h];
        }
        for (size_t h = 0; h < 2 && h * lanes < frames; ++h)
            store(value[h], frames - h * lanes < lanes ? frames - h * lanes : lanes, task.lags - lag,
                  pf + h * lanes * task.stride + lag, task.stride);
    }
}

} // namespace
