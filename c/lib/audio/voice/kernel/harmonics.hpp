// The harmonics of a stretch of a signal: their spectra under a Blackman window and under its derivative.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

namespace wavepitch::voice {

/// Sums that are formed side by side: those of num harmonics, each in harmonicLanes / num parts.
inline constexpr std::size_t harmonicLanes = 16;

/// The powers 0 to harmonicLanes of a number on the unit circle.
struct Powers {
    float re[harmonicLanes + 1];
    float im[harmonicLanes + 1];
};

struct Harmonics {
    const float* centre; ///< the samples -reach to reach around it count; harmonicLanes more can be read
    std::size_t reach;   ///< at each side
    std::size_t num;     ///< of harmonics: 4 or 8
    const Powers* fundamental; ///< of e^(i w), w the angle of the fundamental in one sample
    const Powers* window;      ///< of e^(i a), a the angle pi by half the window's length
    float* work; ///< work space: 4 times as many as reach, rounded up to more than it by whole harmonicLanes
};

/// With v(n) = 0.42 + 0.5 cos(n a) + 0.08 cos(2 n a), a Blackman window, and d(n) = -v'(n) / (4 a), for
/// harmonic q the sums over n from 0 to reach of
///   evenCos  v(n) (x(n) + x(-n)) cos(q w n), the sample in the centre once
///   oddSin   v(n) (x(n) - x(-n)) sin(q w n)
///   oddCos   d(n) (x(n) - x(-n)) cos(q w n)
///   evenSin  d(n) (x(n) + x(-n)) sin(q w n)
/// Lane (q - 1) * parts + p of each holds the part with n = p, p + parts, ..., in this order.
struct HarmonicSums {
    float evenCos[harmonicLanes];
    float oddSin[harmonicLanes];
    float oddCos[harmonicLanes];
    float evenSin[harmonicLanes];
};

/// In single precision; cosines and sines by rotation, for the window by harmonicLanes samples at a time.
template <InstructionSet set>
void harmonicSumsOf(const Harmonics& task, HarmonicSums& sums);

/// The version that the next call uses.
inline void (*harmonicSums())(const Harmonics&, HarmonicSums&) {
    return versionFor(instructionSet(), []<InstructionSet set> { return harmonicSumsOf<set>; });
}

} // namespace wavepitch::voice
