// How a path ends, and what pitch its lags have.
#pragma once

#include "audio/constants.hpp"
#include "audio/pitchTracking/fixedPoint.hpp"
#include "audio/pitchTracking/param.hpp"

#include <cmath>
#include <cstddef>
#include <vector>

namespace wavepitch::pitchTracking {

/// The best of a last frame's candidates by their totals, of which there are count; -1 if there is none. An
/// unknown type is fatal path A.
int bestEnd(const std::vector<double>& totals, std::size_t count, PF_TYPE pfType);

/// In semitones, in fixed point for an integer type.
template <typename T>
T pitchOfLag(int fs, int lag) {
    const double pitch = std::log(static_cast<double>(fs) / lag / 440.0) * 12.0 / lnTwo + 69.0;
    return asElement<T>(static_cast<double>(fixedPointScale<T>) * pitch);
}

} // namespace wavepitch::pitchTracking
