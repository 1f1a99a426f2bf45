// What the kernels' texts share: their vectors, loops written out, and the terms of a pitch function.
//
// These headers are text for the translation unit of one version: everything stands in an unnamed namespace,
// so that no copy compiled for one instruction set serves another. Vectors are ownBytes wide whatever the
// instruction set: 64-byte vectors compile for AVX2, too, where each operation becomes two.
#pragma once

#include "audio/pitchFunction/kernel/kernel.hpp"
#include "utility/interruption.hpp"
#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

namespace {

using std::size_t;
using wavepitch::pitchFunction::Task;

constexpr size_t lanes = ownBytes / sizeof(double);
using Doubles = Lanes<double, ownBytes>;
using Bits = Lanes<std::int64_t, ownBytes>;

#define WAVEPITCH_INLINE __attribute__((always_inline))

// a * b - c in one operation, where there is one.
#if defined(__AVX512F__) && WAVEPITCH_VECTOR_BYTES == 64
#define WAVEPITCH_MULTIPLY_SUBTRACT _mm512_fmsub_pd
#elif defined(__FMA__) && WAVEPITCH_VECTOR_BYTES == 32
#define WAVEPITCH_MULTIPLY_SUBTRACT _mm256_fmsub_pd
#endif

/// Asks the host before some lags of a frame that is so long that the time between frames is.
inline void askInLongFrame(const Task& task) {
    constexpr size_t longFrame = 4096;
    if (task.frameSize >= longFrame) wavepitch::utility::askForInterruption();
}

/// Keeps the compiler from putting off how a vector comes about: it would collect the additions of many
/// steps, and run out of registers for what they wait for.
template <typename Vector>
WAVEPITCH_INLINE inline void settle([[maybe_unused]] Vector& v) {
#if defined(__AVX512F__) || (defined(__AVX__) && WAVEPITCH_VECTOR_BYTES <= 32) ||                            \
    (defined(__SSE2__) && WAVEPITCH_VECTOR_BYTES == 16)
    asm volatile("" : "+v"(v));
#endif
}

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
    return load<double, ownBytes>(from);
}

inline Doubles loadDoubles(const int* from) {
    return __builtin_convertvector((load<int, ownBytes / 2>(from)), Doubles);
}

inline Doubles broadcast(double x) {
    return x - Doubles{}; // every bit of x stays, that of -0 too
}

inline Doubles maskedBy(Bits mask, Doubles x) {
    return reinterpret_cast<Doubles>(reinterpret_cast<Bits>(x) & mask);
}

/// The terms, in each lane or of one pair of samples.
struct Acf {
    static constexpr size_t unroll = 4; // steps of frames side by side that share a window

    template <typename Value>
    WAVEPITCH_INLINE Value term(Value a, Value b) const {
        return a * b;
    }
};

struct Amdf {
    static constexpr size_t unroll = 2;
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

    WAVEPITCH_INLINE Doubles term(Doubles a, Doubles b) const {
        return maskedBy(Bits{} + withoutSign, difference(a, b));
    }
    WAVEPITCH_INLINE double term(double a, double b) const {
        return __builtin_fabs(a - b);
    }

    Doubles one = broadcast(1.0);
};

/// The terms of a lag; none for lags of frameSize and more.
inline size_t termsAt(const Task& task, size_t lag) {
    const size_t inside = lag < task.frameSize ? task.frameSize - lag : 0;
    return inside < task.maxTerms ? inside : task.maxTerms;
}

/// What the sum at a lag below frameSize is divided by.
inline double divisorAt(const Task& task, size_t lag) {
    return static_cast<double>(task.frameSize) - static_cast<double>(lag);
}

/// Divides a pitch function's sums, where the task asks for it.
inline void average(const Task& task, double* pf) {
    if (!task.average) return;
    for (size_t lag = 0; lag < task.lags; ++lag) pf[lag] /= divisorAt(task, lag);
}

} // namespace
