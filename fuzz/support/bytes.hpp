// What a target makes its arguments of: the fuzzer's bytes, and behind their end a generator's. So a few
// bytes choose a call, and arrays need not be written out to be long.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string>

class Bytes {
public:
    /// The first two bytes are the generator's seed: other ones can change and its values stay.
    explicit Bytes(std::span<const std::uint8_t> input);

    /// The next bytes as a number, 1 to 8 of them.
    std::uint64_t next(int count);
    bool flag() { return next(1) % 2 == 1; }
    /// From 0 up to end, which is left out and at least 1.
    int below(int end);
    /// Both included.
    int from(int least, int most);
    /// Of all ints: small ones, the ends of the range and what lies beside them, any.
    int anyInt();
    /// Of all doubles: whole ones, fractions, zeros of both signs, the ends, infinities, not-a-number, any
    /// bits.
    double anyDouble();
    /// From least to most, which is at least 1; often at or beside a power of two, where the blocks of
    /// kernels begin.
    int length(int least, int most);
    std::string text(int length);

    template <typename T>
    T oneOf(std::initializer_list<T> choices) {
        return choices.begin()[below(static_cast<int>(choices.size()))];
    }

private:
    std::uint64_t generated();

    std::span<const std::uint8_t> rest;
    std::uint64_t state;
};
