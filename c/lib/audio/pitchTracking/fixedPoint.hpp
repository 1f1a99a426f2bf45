// How pitch and clarity are held by the element types of the templates: floating types hold the value,
// integer types 1024 times the value (ten fractional bits), truncated.
#pragma once

#include "utility/rounding.hpp"

#include <type_traits>

namespace wavepitch::pitchTracking {

template <typename T>
inline constexpr float fixedPointScale = std::is_integral_v<T> ? 1024.0F : 1.0F;

/// A value that has been scaled, as the element type holds it.
template <typename T>
T asElement(double scaled) {
    if constexpr (std::is_integral_v<T>)
        return static_cast<T>(truncateToInt(scaled));
    else
        return static_cast<T>(scaled);
}

} // namespace wavepitch::pitchTracking
