// Pairs of 16-bit samples, one to each 32-bit lane, for frames of small ints. Sums of integers are exact in
// any order, so that terms can be summed two by two.
//
// Products whose sums could leave 32 bits are summed twice, all of their bits and those above the 16th: both
// together are the sum in 48 bits. For the AMDF, |a - b| = 2 * max(a, b) - a - b: maxima are summed, and the
// sums of the samples themselves follow from one lag's to the next one's.
#pragma once

#include "audio/pitchFunction/kernel/terms.hpp"

#include <bit>

namespace {

constexpr bool hasPairs = std::endian::native == std::endian::little; // the first of a pair is the lower half
constexpr size_t longestOfPairs = 65535; // samples: no sum of maxima leaves 32 bits, none of products 48

constexpr size_t wordLanes = ownBytes / sizeof(std::int32_t);

using Words = Lanes<std::int32_t, ownBytes>;
using UnsignedWords = Lanes<std::uint32_t, ownBytes>;
using Shorts = Lanes<std::int16_t, ownBytes>;

#if defined(__AVX512BW__) && WAVEPITCH_VECTOR_BYTES == 64
using Part = __m512i;
inline Part multiplyAddPart(Part a, Part b) {
    return _mm512_madd_epi16(a, b);
}
#elif defined(__AVX2__) && WAVEPITCH_VECTOR_BYTES >= 32
using Part = __m256i;
inline Part multiplyAddPart(Part a, Part b) {
    return _mm256_madd_epi16(a, b);
}
#elif defined(__SSE2__)
using Part = __m128i;
inline Part multiplyAddPart(Part a, Part b) {
    return _mm_madd_epi16(a, b);
}
#else
using Part = Words;
inline Part multiplyAddPart(Part a, Part b) {
    return ((a << 16) >> 16) * ((b << 16) >> 16) + (a >> 16) * (b >> 16);
}
#endif

/// a.first * b.first + a.second * b.second of each pair.
WAVEPITCH_INLINE inline Words multiplyAdd(Words a, Words b) {
    constexpr size_t parts = ownBytes / sizeof(Part);
    Part x[parts];
    Part y[parts];
    __builtin_memcpy(x, &a, ownBytes);
    __builtin_memcpy(y, &b, ownBytes);
    for (size_t i = 0; i < parts; ++i) x[i] = multiplyAddPart(x[i], y[i]);
    __builtin_memcpy(&a, x, ownBytes);
    return a;
}

/// Sums that stay within 32 bits.
struct NarrowSum {
    WAVEPITCH_INLINE void add(Words x) { sum += x; }
    UnsignedWords lowBits() const { return reinterpret_cast<UnsignedWords>(sum); }

    Words sum;
};

/// Sums of up to 65535 numbers.
struct WideSum {
    WAVEPITCH_INLINE void add(Words x) {
        low += reinterpret_cast<UnsignedWords>(x);
        high += x >> 16;
    }
    UnsignedWords lowBits() const { return low; }

    UnsignedWords low; // modulo 2^32
    Words high;
};

/// Products. The mask of a term is that of the samples of first that count.
template <typename Sum_>
struct AcfOfPairs {
    using Sum = Sum_;
    static constexpr std::int16_t behind = 0; // what stands behind a frame, to add nothing

    WAVEPITCH_INLINE static Words terms(Words first, Words second, std::int32_t mask) {
        return multiplyAdd(first & mask, second);
    }
};

/// Maxima.
struct AmdfOfPairs {
    using Sum = NarrowSum;
    static constexpr std::int16_t behind = INT16_MIN; // to add first

    WAVEPITCH_INLINE static Words terms(Words first, Words second, std::int32_t mask) {
        const auto a = reinterpret_cast<Shorts>(first);
        const auto b = reinterpret_cast<Shorts>(second);
        return multiplyAdd(reinterpret_cast<Words>(a > b ? a : b), Words{} + (0x00010001 & mask));
    }
};

constexpr std::int32_t both = -1;
constexpr std::int32_t firstOnly = 0xffff;

/// The smallest and the largest sample.
struct Range {
    int low = INT32_MAX;
    int high = INT32_MIN;

    void include(Range other) {
        low = other.low < low ? other.low : low;
        high = other.high > high ? other.high : high;
    }
};

/// Whether frames of such samples can be taken as pairs.
inline bool fitsPairs(const Task& task, Range range) {
    const int lowest = task.acf ? -INT16_MAX : INT16_MIN; // two squares of the lowest leave 32 bits
    return hasPairs && task.frameSize <= longestOfPairs && range.low >= lowest && range.high <= INT16_MAX;
}

/// Calls sum(kind) with the kind of pairs that the task and the range ask for.
template <typename Sum>
void withPairs(const Task& task, Range range, const Sum& sum) {
    const std::int64_t most = -range.low > range.high ? -range.low : range.high;
    if (!task.acf)
        sum(AmdfOfPairs{});
    else if (most * most * static_cast<std::int64_t>(task.frameSize) <= INT32_MAX)
        sum(AcfOfPairs<NarrowSum>{});
    else
        sum(AcfOfPairs<WideSum>{});
}

} // namespace
