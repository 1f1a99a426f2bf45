// Arrays whose ends the address sanitizer sees: a vector's may lie inside its capacity.
#pragma once

#include "support/bytes.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <vector>

template <typename T>
class Exact {
public:
    /// @param length  of elements that all hold one value; below 1 there are none.
    explicit Exact(int length, T value = T{})
        : count(std::max(length, 0)), elements(std::make_unique<T[]>(static_cast<std::size_t>(count))) {
        std::fill(begin(), end(), value);
    }
    explicit Exact(std::span<const T> values) : Exact(static_cast<int>(values.size())) {
        std::copy(values.begin(), values.end(), begin());
    }
    Exact(const Exact& other) : Exact(std::span<const T>(other.data(), other.size())) {}
    Exact(Exact&&) = default;
    Exact& operator=(const Exact& other) { return *this = Exact(other); }
    Exact& operator=(Exact&&) = default;
    ~Exact() = default;

    T* data() { return elements.get(); }
    const T* data() const { return elements.get(); }
    int length() const { return count; }
    std::size_t size() const { return static_cast<std::size_t>(count); }
    T* begin() { return data(); }
    T* end() { return data() + count; }
    const T* begin() const { return data(); }
    const T* end() const { return data() + count; }
    T& operator[](int i) { return elements[static_cast<std::size_t>(i)]; }
    const T& operator[](int i) const { return elements[static_cast<std::size_t>(i)]; }
    std::vector<T> copy() const { return {begin(), end()}; }

private:
    int count;
    std::unique_ptr<T[]> elements;
};

/// A text with its terminator.
inline Exact<char> exactText(const std::string& text) {
    return Exact<char>(std::span<const char>(text.c_str(), text.size() + 1));
}

/// Doubles of one kind: a few whole numbers, which are often equal; of a scale; any; of a scale with some of
/// any among them.
inline Exact<double> exactDoubles(Bytes& bytes, int length) {
    Exact<double> values(length);
    const int kind = bytes.below(4);
    const int exponent = bytes.from(-40, 20);
    const int few = bytes.from(1, 40);
    const int rarity = bytes.from(1, 200);
    for (double& x : values) {
        x = std::ldexp(static_cast<double>(bytes.next(4)) - 0x1p31, exponent);
        if (kind == 0) x = bytes.below(few) - few / 2;
        if (kind == 1 || (kind == 2 && bytes.below(rarity) == 0)) x = bytes.anyDouble();
    }
    return values;
}

/// Ints of so many bits, with runs of the ends of the range, whose sums and differences are the largest.
inline Exact<int> exactInts(Bytes& bytes, int length, int bits) {
    Exact<int> values(length);
    for (int& x : values) x = static_cast<int>(bytes.next(4)) >> (32 - bits);
    for (const int end : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
        if (length > 0 && bytes.below(4) == 0)
            std::fill(values.begin() + bytes.below(length), values.end(), end >> (32 - bits));
    return values;
}

inline Exact<int> exactInts(Bytes& bytes, int length) {
    return exactInts(bytes, length, bytes.oneOf({1, 3, 8, 11, 14, 16, 24, 27, 31, 32}));
}
