// Vectors of WAVEPITCH_VECTOR_BYTES bytes (16, 32 or 64) and what the kernels need of them beyond plain
// arithmetic. The width and the instruction set are chosen apart: 64-byte vectors compile for AVX2, too,
// where each operation becomes two.
//
// This header and those that include it are text for the translation unit of one version: everything stands
// in an unnamed namespace, so that no copy compiled for one instruction set serves another.
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace {

using std::size_t;

constexpr size_t vectorBytes = WAVEPITCH_VECTOR_BYTES;
constexpr size_t lanes = vectorBytes / sizeof(double);
constexpr size_t wordLanes = vectorBytes / sizeof(std::int32_t);

typedef double Doubles __attribute__((vector_size(vectorBytes), may_alias));
typedef std::int64_t Bits __attribute__((vector_size(vectorBytes), may_alias));
typedef std::int32_t Words __attribute__((vector_size(vectorBytes), may_alias));
typedef std::int16_t Shorts __attribute__((vector_size(vectorBytes), may_alias));

// The same at any address.
typedef double LooseDoubles __attribute__((vector_size(vectorBytes), aligned(8), may_alias));
typedef std::int32_t LooseWords __attribute__((vector_size(vectorBytes), aligned(4), may_alias));
typedef std::int32_t LooseHalfWords __attribute__((vector_size(vectorBytes / 2), aligned(4), may_alias));

#define WAVEPITCH_INLINE __attribute__((always_inline))

// a * b - c in one operation, where there is one.
#if defined(__AVX512F__) && WAVEPITCH_VECTOR_BYTES == 64
#define WAVEPITCH_MULTIPLY_SUBTRACT _mm512_fmsub_pd
#elif defined(__FMA__) && WAVEPITCH_VECTOR_BYTES == 32
#define WAVEPITCH_MULTIPLY_SUBTRACT _mm256_fmsub_pd
#endif

/// A number that the compiler knows, passed as an argument.
template <size_t number>
struct Constant {
    static constexpr size_t value = number;
    constexpr operator size_t() const { return number; }
};

/// body(0), body(1), ... body(count - 1), written out.
template <size_t count, size_t from = 0, typename Body>
WAVEPITCH_INLINE inline void unrolled(const Body& body) {
    if constexpr (from < count) {
        body(Constant<from>{});
        unrolled<count, from + 1>(body);
    }
}

inline Doubles loadDoubles(const double* from) {
    return *reinterpret_cast<const LooseDoubles*>(from);
}

inline Doubles loadDoubles(const int* from) {
    return __builtin_convertvector(*reinterpret_cast<const LooseHalfWords*>(from), Doubles);
}

// --- One value in all lanes, and the exchange of lanes, for each width -------------------------------------

// exchange<stride>(a, b) swaps lane l + stride of a with lane l of b, for every l without the bit stride.
template <size_t stride>
void exchange(Bits& a, Bits& b);

#define WAVEPITCH_EXCHANGE(stride, lower, upper)                                                             \
    template <>                                                                                              \
    inline void exchange<stride>(Bits & a, Bits & b) {                                                       \
        const Bits kept = __builtin_shufflevector lower;                                                     \
        b = __builtin_shufflevector upper;                                                                   \
        a = kept;                                                                                            \
    }

#if WAVEPITCH_VECTOR_BYTES == 16
inline Doubles broadcast(double x) {
    return Doubles{x, x};
}
WAVEPITCH_EXCHANGE(1, (a, b, 0, 2), (a, b, 1, 3))
#elif WAVEPITCH_VECTOR_BYTES == 32
inline Doubles broadcast(double x) {
    return Doubles{x, x, x, x};
}
WAVEPITCH_EXCHANGE(1, (a, b, 0, 4, 2, 6), (a, b, 1, 5, 3, 7))
WAVEPITCH_EXCHANGE(2, (a, b, 0, 1, 4, 5), (a, b, 2, 3, 6, 7))
#else
inline Doubles broadcast(double x) {
    return Doubles{x, x, x, x, x, x, x, x};
}
WAVEPITCH_EXCHANGE(1, (a, b, 0, 8, 2, 10, 4, 12, 6, 14), (a, b, 1, 9, 3, 11, 5, 13, 7, 15))
WAVEPITCH_EXCHANGE(2, (a, b, 0, 1, 8, 9, 4, 5, 12, 13), (a, b, 2, 3, 10, 11, 6, 7, 14, 15))
WAVEPITCH_EXCHANGE(4, (a, b, 0, 1, 2, 3, 8, 9, 10, 11), (a, b, 4, 5, 6, 7, 12, 13, 14, 15))
#endif

// --- Transposition -----------------------------------------------------------------------------------------

/// Exchanges the neighbours among the 32-bit lanes, the words of a 64-bit lane being stored lower one first.
inline void exchangeWords(Bits& a, Bits& b) {
    constexpr std::int64_t low = 0xffffffff;
    const Bits kept = (a & low) | (b << 32);
    b = ((a >> 32) & low) | (b & ~low);
    a = kept;
}

/// Transposes lanes rows of 64-bit lanes (Row = Doubles) or wordLanes rows of 32-bit lanes (Row = Words).
template <typename Lane, typename Row>
WAVEPITCH_INLINE inline void transpose(Row* row) {
    constexpr size_t perLane = sizeof(std::int64_t) / sizeof(Lane);
    Bits v[lanes * perLane];
    unrolled<lanes * perLane>([&](auto r) WAVEPITCH_INLINE { v[r] = reinterpret_cast<Bits>(row[r]); });
    if constexpr (perLane == 2)
        unrolled<lanes>([&](auto r) WAVEPITCH_INLINE { exchangeWords(v[2 * r], v[2 * r + 1]); });
    unrolled<3>([&](auto stage) WAVEPITCH_INLINE {
        constexpr size_t stride = size_t{1} << stage.value;
        unrolled<lanes * perLane>([&](auto r) WAVEPITCH_INLINE {
            constexpr size_t partner = r.value + stride * perLane;
            if constexpr (stride < lanes && (r.value / perLane & stride) == 0)
                exchange<stride>(v[r], v[partner]);
        });
    });
    unrolled<lanes * perLane>([&](auto r) WAVEPITCH_INLINE { row[r] = reinterpret_cast<Row>(v[r]); });
}

// --- 16-bit arithmetic: each 32-bit lane holds a pair ------------------------------------------------------

constexpr bool hasPairs = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__; // exchangeWords relies on it

#if defined(__AVX512BW__) && WAVEPITCH_VECTOR_BYTES == 64
using Part = __m512i;
inline Part multiplyAddPart(Part a, Part b) {
    return _mm512_madd_epi16(a, b);
}
inline Part magnitudePart(Part a) {
    return _mm512_abs_epi16(a);
}
#elif defined(__AVX2__) && WAVEPITCH_VECTOR_BYTES >= 32
using Part = __m256i;
inline Part multiplyAddPart(Part a, Part b) {
    return _mm256_madd_epi16(a, b);
}
inline Part magnitudePart(Part a) {
    return _mm256_abs_epi16(a);
}
#elif defined(__SSE2__)
using Part = __m128i;
inline Part multiplyAddPart(Part a, Part b) {
    return _mm_madd_epi16(a, b);
}
inline Part magnitudePart(Part a) {
    return _mm_max_epi16(a, _mm_sub_epi16(_mm_setzero_si128(), a));
}
#else
using Part = Words;
inline Part multiplyAddPart(Part a, Part b) {
    return ((a << 16) >> 16) * ((b << 16) >> 16) + (a >> 16) * (b >> 16);
}
inline Part magnitudePart(Part a) {
    const Shorts x = reinterpret_cast<Shorts>(a);
    return reinterpret_cast<Part>(x < 0 ? -x : x);
}
#endif

union Parts {
    Words whole;
    Part part[vectorBytes / sizeof(Part)];
};

/// a.first * b.first + a.second * b.second of each pair.
WAVEPITCH_INLINE inline Words multiplyAdd(Words a, Words b) {
    Parts x{a};
    const Parts y{b};
    for (size_t i = 0; i < vectorBytes / sizeof(Part); ++i) x.part[i] = multiplyAddPart(x.part[i], y.part[i]);
    return x.whole;
}

/// The absolute value of both numbers of each pair.
WAVEPITCH_INLINE inline Words magnitude(Words a) {
    Parts x{a};
    for (Part& part : x.part) part = magnitudePart(part);
    return x.whole;
}

} // namespace
