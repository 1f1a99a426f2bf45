// Recordings to track and to segment: stretches of tones, noise and silence at levels of their own.
#pragma once

#include "support/exact.hpp"

#include <numbers>

/// @param loudest  the largest sample; now and then one is out of all bounds.
inline Exact<double> sound(Bytes& bytes, int length, double loudest) {
    Exact<double> wave(length);
    int i = 0;
    while (i < length) {
        const int end = i + bytes.from(1, std::max(1, length / bytes.from(1, 12)));
        const double level = loudest * std::exp2(-bytes.below(18));
        const double period = bytes.from(2, 500);
        const int kind = bytes.below(4);
        for (; i < std::min(end, length); ++i) {
            const double phase = i / period;
            if (kind == 0) wave[i] = level * std::sin(2 * std::numbers::pi * phase);
            if (kind == 1) wave[i] = level * (2 * (phase - std::floor(phase)) - 1);
            if (kind == 2) wave[i] = level * (static_cast<double>(bytes.next(2)) / 32768 - 1);
        }
    }
    if (length > 0 && bytes.below(8) == 0) wave[bytes.below(length)] = bytes.anyDouble();
    return wave;
}

/// The same of ints: of 16 bits, of 8, or any.
inline Exact<int> intSound(Bytes& bytes, int length) {
    if (bytes.below(6) == 0) return exactInts(bytes, length);
    const Exact<double> wave = sound(bytes, length, bytes.oneOf({32767.0, 127.0, 2147483647.0}));
    Exact<int> samples(length);
    for (int i = 0; i < length; ++i)
        samples[i] = std::abs(wave[i]) < 0x1p31 ? static_cast<int>(wave[i]) : std::numeric_limits<int>::min();
    return samples;
}
