// The normalised correlation of a group of frames, side by side.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

namespace wavepitch::voice {

/// Frames of a group.
inline constexpr std::size_t correlationFrames = 16;

/// Arrays "by frame" hold one value after the other for the frames of the group, at each place.
struct Correlation {
    const float* const* spans; ///< the first sample of each frame's span of windowLen + lastLag samples
    std::size_t windowLen;     ///< samples that are correlated
    std::size_t firstLag;
    std::size_t lagNum;    ///< lastLag = firstLag + lagNum - 1
    double floor;          ///< added to the energy of each window: above 0
    float threshold;       ///< of a maximum
    float* samples;        ///< work space: the spans, by frame
    float* energies;       ///< work space: lastLag + 1 energies with the floor, by frame
    float* values;         ///< receives the correlation at each lag, by frame
    unsigned* maximumBits; ///< receives, for each 32 lags, a word by frame with bits at the maxima
};

/// For each frame and lag k, with s = (windowLen + lastLag) / 2 - (windowLen + k) / 2, quotients rounded
/// down: twice the sum of x[s + j] x[s + k + j] over the window, in single precision and in the order of j,
/// by the sum of the two windows' energies with the floor. The energies are running sums in double precision
/// from the start of the span, narrowed with the floor.
///
/// A maximum is a value above the threshold and above the one before it, and not below the one behind it; the
/// first and the last lag are none.
template <InstructionSet set>
void correlationOf(const Correlation& task);

/// The version that the next call uses.
inline void (*correlationKernel())(const Correlation&) {
    return versionFor(instructionSet(), []<InstructionSet set> { return correlationOf<set>; });
}

} // namespace wavepitch::voice
