// Vectors of any width for the texts of kernels, which are compiled once for each instruction set
// (version.hpp). Everything is local to the file that includes it, and nothing but sizes is included
// here, so that no code can be mixed up between instruction sets.
#pragma once

#include <cstddef>
#include <cstdint>

namespace {

template <typename Element, std::size_t bytes>
struct LanesOf {
    typedef Element Aligned __attribute__((vector_size(bytes)));
    typedef Element Unaligned __attribute__((vector_size(bytes), aligned(alignof(Element)), may_alias));
};

/// bytes / sizeof(Element) elements side by side.
template <typename Element, std::size_t bytes>
using Lanes = typename LanesOf<Element, bytes>::Aligned;

/// The elements at any address.
template <typename Element, std::size_t bytes>
inline Lanes<Element, bytes> load(const Element* from) {
    return *reinterpret_cast<const typename LanesOf<Element, bytes>::Unaligned*>(from);
}

/// Writes all lanes to any address.
template <typename Vector, typename Element>
inline void store(const Vector& values, Element* to) {
    __builtin_memcpy(to, &values, sizeof values);
}

/// The lanes joined by an operation that does not ask for their order, halves first.
template <typename Element, std::size_t bytes, typename Join>
inline Element joined(Lanes<Element, bytes> lanes, Join join) {
    if constexpr (bytes > sizeof(Element)) {
        if constexpr (bytes > 16) {
            Lanes<Element, bytes / 2> halves[2];
            __builtin_memcpy(halves, &lanes, bytes);
            return joined<Element, bytes / 2>(join(halves[0], halves[1]), join);
        }
        Element result = lanes[0];
        for (std::size_t k = 1; k < bytes / sizeof(Element); ++k) result = join(result, lanes[k]);
        return result;
    }
}

template <typename Element, std::size_t bytes>
inline Element sumOfLanes(Lanes<Element, bytes> lanes) {
    return joined<Element, bytes>(lanes, [](auto a, auto b) { return a + b; });
}

} // namespace
