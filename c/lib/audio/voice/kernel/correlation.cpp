// A frame has a lane of its own in all stages: its sums have one order at any width of the registers.
#include "audio/voice/kernel/correlation.hpp"
#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

using wavepitch::voice::Correlation;
using Floats = Lanes<float, ownBytes>;
using Words = Lanes<unsigned, ownBytes>;
constexpr std::size_t frames = wavepitch::voice::correlationFrames;
constexpr std::size_t lanes = ownBytes / sizeof(float);

inline Floats floatsAt(const float* from) {
    return load<float, ownBytes>(from);
}

void turn(const Correlation& task) {
    const std::size_t span = task.windowLen + task.firstLag + task.lagNum - 1;
    for (std::size_t f = 0; f < frames; ++f) {
        const float* x = task.spans[f];
        for (std::size_t t = 0; t < span; ++t) task.samples[t * frames + f] = x[t];
    }
}

/// The energies of the windows, half a register of frames at a time.
void sumEnergies(const Correlation& task) {
    constexpr std::size_t half = lanes / 2;
    using Doubles = Lanes<double, ownBytes>;
    const auto square = [&](std::size_t t, std::size_t f) {
        const auto x =
            __builtin_convertvector((load<float, ownBytes / 2>(task.samples + t * frames + f)), Doubles);
        return x * x;
    };
    for (std::size_t f = 0; f < frames; f += half) {
        Doubles sum = {};
        for (std::size_t t = 0; t < task.windowLen; ++t) sum += square(t, f);
        for (std::size_t t = 0; t < task.firstLag + task.lagNum; ++t) {
            if (t > 0) sum += square(t - 1 + task.windowLen, f) - square(t - 1, f);
            const auto narrow = __builtin_convertvector(sum + task.floor, Lanes<float, ownBytes / 2>);
            __builtin_memcpy(task.energies + t * frames + f, &narrow, sizeof narrow);
        }
    }
}

/// Where the two windows of a lag begin.
struct Windows {
    std::size_t first;
    std::size_t second;

    Windows(const Correlation& task, std::size_t lag) {
        const std::size_t lastLag = task.firstLag + task.lagNum - 1;
        first = (task.windowLen + lastLag) / 2 - (task.windowLen + lag) / 2;
        second = first + lag;
    }
};

/// Several lags, the first of which has an even sum with windowLen: from lag to lag the second window moves
/// on by a sample, then the first one back, in turn, so that each sample read serves two lags.
template <std::size_t lags>
void correlate(const Correlation& task, std::size_t row, std::size_t f) {
    const Windows at(task, task.firstLag + row);
    const float* x = task.samples + f + at.first * frames;
    const float* y = task.samples + f + at.second * frames;
    Floats sums[lags] = {};
    for (std::size_t j = 0; j < task.windowLen; ++j, x += frames, y += frames) {
#pragma GCC unroll 8
        for (std::size_t i = 0; i < lags; ++i)
            sums[i] += floatsAt(x - i / 2 * frames) * floatsAt(y + (i + 1) / 2 * frames);
    }
    const float* energies = task.energies + f;
    for (std::size_t i = 0; i < lags; ++i) {
        const Floats energy = floatsAt(energies + (at.first - i / 2) * frames) +
                              floatsAt(energies + (at.second + (i + 1) / 2) * frames);
        store((sums[i] + sums[i]) / energy, task.values + (row + i) * frames + f);
    }
}

void correlateAll(const Correlation& task, std::size_t f) {
    std::size_t row = (task.windowLen + task.firstLag) % 2;
    if (row == 1) correlate<1>(task, 0, f);
    for (; row + 8 <= task.lagNum; row += 8) correlate<8>(task, row, f);
    if (row + 4 <= task.lagNum) {
        correlate<4>(task, row, f);
        row += 4;
    }
    if (row + 2 <= task.lagNum) {
        correlate<2>(task, row, f);
        row += 2;
    }
    if (row < task.lagNum) correlate<1>(task, row, f);
}

void markMaxima(const Correlation& task, std::size_t f) {
    for (std::size_t start = 0; start < task.lagNum; start += 32) {
        Words bits = {};
        for (std::size_t i = 0; i < 32; ++i) {
            const std::size_t row = start + i;
            if (row == 0 || row + 1 >= task.lagNum) continue;
            const float* value = task.values + row * frames + f;
            const Floats here = floatsAt(value);
            const auto isMaximum = (here > task.threshold) & (here > floatsAt(value - frames)) &
                                   (here >= floatsAt(value + frames));
            bits |= reinterpret_cast<Words>(isMaximum) & (1U << i);
        }
        __builtin_memcpy(task.maximumBits + start / 32 * frames + f, &bits, sizeof bits);
    }
}

} // namespace

template <wavepitch::InstructionSet set>
void wavepitch::voice::correlationOf(const Correlation& task) {
    turn(task);
    sumEnergies(task);
    for (std::size_t f = 0; f < frames; f += lanes) {
        correlateAll(task, f);
        markMaxima(task, f);
    }
}

template void wavepitch::voice::correlationOf<ownSet>(const wavepitch::voice::Correlation&);
