// Split-radix transform with decimation in frequency, in stages of L-shaped butterflies over blocks of N, N /
// 2, ..., 4 elements, then butterflies of length two, then the bit-reversal permutation.
//
// A stage splits each of its blocks into a half, which the next stage takes up, and two quarters, which the
// stage after that takes up: not every block-sized piece of the arrays is a block. The butterflies of one
// stage touch different elements, so that their order is free. They run along the block, where neighbouring
// elements take neighbouring sines and cosines: that is what vector instructions like.
#include "audio/spectrum/fft.hpp"

#include "audio/constants.hpp"
#include "audio/spectrum/frameTransform.hpp"
#include "utility/interruption.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <utility>

#include "mex.h"

namespace {

// The transform size of the largest n, 2^31, does not fit an int: positions are wider.
using Index = std::int64_t;

/// Where the time from one transform to the next one is too long to wait.
void askInLongTransform(Index size) {
    constexpr Index longSize = 1 << 18;
    if (size >= longSize) wavepitch::utility::askForInterruption();
}

Index transformSize(int n) {
    Index size = 2;
    while (size < n) size *= 2;
    return size;
}

void announcePadding(Index size, int n) {
    if (size != n) mexPrintf("\nuse %lld point fft", static_cast<long long>(size));
}

/// cos a, sin a, cos 3a and sin 3a for consecutive angles a of a stage, in four rows of storage.
template <typename T>
struct Twiddles {
    T *cc1, *ss1, *cc3, *ss3;

    Twiddles(T* storage, Index count)
        : cc1(storage), ss1(storage + count), cc3(storage + 2 * count), ss3(storage + 3 * count) {}

    /// @param first  the number of the first angle.
    void compute(Index len, Index first, Index count) {
        constexpr std::size_t steps = 50;
        wavepitch::utility::LongWork work;
        const T e = static_cast<T>(twoPi) / static_cast<T>(len);
        for (Index j = 0; j < count; ++j) {
            work.took(steps);
            const T a = static_cast<T>(first + j) * e;
            const T a3 = 3 * a;
            cc1[j] = std::cos(a);
            ss1[j] = std::sin(a);
            cc3[j] = std::cos(a3);
            ss3[j] = std::sin(a3);
        }
    }

    /// Turns the values of one stage into those of the next, half as long: its angles are exactly every
    /// second one, because halving len only changes the exponent of e.
    void thin(Index count) {
        for (T* row : {cc1, ss1, cc3, ss3})
            for (Index j = 1; j < count; ++j) row[j] = row[2 * j];
    }
};

/// Calls visit(start) for each block of a stage: for the pieces of len elements whose number ends in an even
/// count of binary ones.
template <typename Visit>
void forEachBlock(Index size, Index len, Visit visit) {
    Index distance = 2 * len;
    for (Index start = 0; start < size; start = 2 * distance - len, distance *= 4)
        for (Index i0 = start; i0 < size; i0 += distance) visit(i0);
}

/// The butterflies of count consecutive angles, on the four quarters x0 to x3 (real) and y0 to y3 (imaginary)
/// of a block.
template <typename T>
void butterflies(Index count, T* __restrict x0, T* __restrict x1, T* __restrict x2, T* __restrict x3,
                 T* __restrict y0, T* __restrict y1, T* __restrict y2, T* __restrict y3,
                 const T* __restrict cc1, const T* __restrict ss1, const T* __restrict cc3,
                 const T* __restrict ss3) {
    for (Index j = 0; j < count; ++j) {
        const T r1 = x0[j] - x2[j], r2 = x1[j] - x3[j];
        const T s1 = y0[j] - y2[j], s2 = y1[j] - y3[j];
        x0[j] += x2[j];
        x1[j] += x3[j];
        y0[j] += y2[j];
        y1[j] += y3[j];
        const T rSum = r1 + s2, rDifference = r1 - s2;
        const T sSum = r2 + s1, sDifference = r2 - s1;
        x2[j] = rSum * cc1[j] - sDifference * ss1[j];
        y2[j] = -sDifference * cc1[j] - rSum * ss1[j];
        x3[j] = rDifference * cc3[j] + sSum * ss3[j];
        y3[j] = sSum * cc3[j] - rDifference * ss3[j];
    }
}

/// One stage, for the angles first to first + count - 1.
template <typename T>
void stage(T* real, T* imag, Index size, Index len, Index first, Index count, const Twiddles<T>& twiddles) {
    const Index quarter = len / 4;
    const auto run = [=](auto quarters, auto angles) {
        forEachBlock(size, len, [=](Index i0) {
            T *x = real + i0 + first, *y = imag + i0 + first;
            butterflies<T>(angles, x, x + quarters, x + 2 * quarters, x + 3 * quarters, y, y + quarters,
                           y + 2 * quarters, y + 3 * quarters, twiddles.cc1, twiddles.ss1, twiddles.cc3,
                           twiddles.ss3);
        });
    };
    // The last stages are too short for a loop: their lengths are made known to the compiler.
    if (quarter == 1) return run(std::integral_constant<Index, 1>(), std::integral_constant<Index, 1>());
    if (quarter == 2) return run(std::integral_constant<Index, 2>(), std::integral_constant<Index, 2>());
    run(quarter, count);
}

template <typename T>
void pairButterflies(T* x, Index size) {
    forEachBlock(size, 2, [x](Index i) {
        const T first = x[i];
        x[i] = first + x[i + 1];
        x[i + 1] = first - x[i + 1];
    });
}

template <typename T>
void bitReverse(T* real, T* imag, Index size) {
    Index j = 0;
    for (Index i = 0; i < size - 1; ++i) {
        if (i < j) {
            std::swap(real[i], real[j]);
            std::swap(imag[i], imag[j]);
        }
        // Counting up flips the ones that i ends in and the zero before them; j has these bits on top.
        j ^= size - (size >> (std::countr_one(static_cast<std::uint64_t>(i)) + 1));
    }
}

/// What follows the L-shaped butterflies.
template <typename T>
void finish(T* real, T* imag, Index size) {
    askInLongTransform(size);
    pairButterflies(real, size);
    pairButterflies(imag, size);
    askInLongTransform(size);
    bitReverse(real, imag, size);
}

} // namespace

template <typename T>
void fftComplex(T* real, T* imag, int n) {
    const Index size = transformSize(n);
    std::fill(real + std::max(n, 0), real + size, T{});
    std::fill(imag + std::max(n, 0), imag + size, T{});
    announcePadding(size, n);

    constexpr Index room = 512; // angles at a time, small enough for the stack
    std::array<T, 4 * room> storage;
    Twiddles<T> twiddles(storage.data(), room);
    for (Index len = size; len >= 4; len /= 2) {
        const Index quarter = len / 4;
        if (len < size && quarter < room) {
            twiddles.thin(quarter);
            stage(real, imag, size, len, 0, quarter, twiddles);
            continue;
        }
        for (Index first = 0; first < quarter; first += room) {
            const Index count = std::min(room, quarter);
            twiddles.compute(len, first, count);
            stage(real, imag, size, len, first, count, twiddles);
        }
    }
    finish(real, imag, size);
}

template void fftComplex(float* real, float* imag, int n);
template void fftComplex(double* real, double* imag, int n);

namespace wavepitch::spectrum {

template <typename T>
FrameTransform<T>::FrameTransform(int frameSize, int n)
    : frameSize_(static_cast<std::size_t>(frameSize)), n_(n),
      real_(static_cast<std::size_t>(transformSize(n))), imag_(real_.size()), twiddles_(2 * real_.size()) {
    T* storage = twiddles_.data();
    for (auto len = static_cast<Index>(real_.size()); len >= 4; storage += len, len /= 2)
        Twiddles<T>(storage, len / 4).compute(len, 0, len / 4);
}

template <typename T>
void FrameTransform<T>::transform() {
    std::fill(real_.begin() + static_cast<std::ptrdiff_t>(frameSize_), real_.end(), T{});
    std::fill(imag_.begin(), imag_.end(), T{});
    const auto size = static_cast<Index>(real_.size());
    announcePadding(size, n_);
    T* storage = twiddles_.data();
    for (Index len = size; len >= 4; storage += len, len /= 2) {
        askInLongTransform(size);
        stage(real_.data(), imag_.data(), size, len, 0, len / 4, Twiddles<T>(storage, len / 4));
    }
    finish(real_.data(), imag_.data(), size);
}

template class FrameTransform<float>;
template class FrameTransform<double>;

} // namespace wavepitch::spectrum
