// Exchanging lanes: rows of doubles become columns, and a window of samples slides from lane to lane.
#pragma once

#include "audio/pitchFunction/kernel/terms.hpp"

#include <type_traits>
#include <utility>

namespace {

/// The lanes of a and b, counted through, that the numbers name.
template <typename Vector, size_t... lane>
WAVEPITCH_INLINE inline Vector chosen(Vector a, Vector b, std::index_sequence<lane...> /*lanes*/) {
    return __builtin_shufflevector(a, b, lane...);
}

template <typename Vector>
constexpr size_t lanesOf = sizeof(Vector) / sizeof(Vector{}[0]);

/// For each lane l of 0 to the last: lane l of a or of b, as upper says, of the pair that lies stride apart.
template <size_t stride, bool upper, size_t... lane>
constexpr auto exchanged(std::index_sequence<lane...> /*lanes*/) {
    constexpr size_t from = upper ? stride : 0;
    return std::index_sequence<((lane & stride) ? sizeof...(lane) + lane - stride + from : lane + from)...>{};
}

/// Swaps lane l + stride of a with lane l of b, for every l without the bit stride.
template <size_t stride, typename Vector>
WAVEPITCH_INLINE inline void exchange(Vector& a, Vector& b) {
    constexpr auto all = std::make_index_sequence<lanesOf<Vector>>{};
    const Vector kept = chosen(a, b, exchanged<stride, false>(all));
    b = chosen(a, b, exchanged<stride, true>(all));
    a = kept;
}

/// Transposes as many rows as there are lanes.
template <typename Vector>
WAVEPITCH_INLINE inline void transpose(Vector* row) {
    unrolled<4>([&](auto stage) WAVEPITCH_INLINE {
        constexpr size_t stride = size_t{1} << stage.value;
        unrolled<lanesOf<Vector>>([&](auto r) WAVEPITCH_INLINE {
            if constexpr (stride < lanesOf<Vector> && (r.value & stride) == 0)
                exchange<stride>(row[r], row[r + stride]);
        });
    });
}

template <typename Vector, size_t... lane>
WAVEPITCH_INLINE inline Vector shifted(Vector v, Vector next, std::index_sequence<lane...> /*lanes*/) {
    return __builtin_shufflevector(v, next, (lane + 1)...);
}

/// Every lane takes what the next one has, the last one what all lanes of next have.
template <typename Vector>
WAVEPITCH_INLINE inline Vector shifted(Vector v, Vector next) {
    return shifted(v, next, std::make_index_sequence<lanesOf<Vector>>{});
}

/// The window at a sample: lane l of row k is what begins at x[k + l * rows].
template <size_t rows, typename Sample, typename Vector>
WAVEPITCH_INLINE inline void startWindow(const Sample* x, Vector* window) {
    using Lane = std::remove_reference_t<decltype(window[0][0])>;
    alignas(Vector) Lane lane[rows][lanesOf<Vector>];
    for (size_t k = 0; k < rows; ++k)
        for (size_t l = 0; l < lanesOf<Vector>; ++l)
            __builtin_memcpy(&lane[k][l], x + k + l * rows, sizeof(Lane));
    unrolled<rows>([&](auto k) WAVEPITCH_INLINE { __builtin_memcpy(&window[k], lane[k], sizeof(Vector)); });
}

/// Lane l of row k goes to x[k + l * rows].
template <size_t rows, typename Vector, typename Value>
WAVEPITCH_INLINE inline void storeRows(const Vector* row, Value* x) {
    using Lane = std::remove_cv_t<std::remove_reference_t<decltype(row[0][0])>>;
    alignas(Vector) Lane lane[rows][lanesOf<Vector>];
    unrolled<rows>([&](auto k) WAVEPITCH_INLINE { __builtin_memcpy(lane[k], &row[k], sizeof(Vector)); });
    asm volatile("" : : "r"(lane) : "memory"); // or the compiler takes the vectors apart lane by lane
    for (size_t l = 0; l < lanesOf<Vector>; ++l)
        for (size_t k = 0; k < rows; ++k) x[l * rows + k] = lane[k][l];
}

} // namespace
