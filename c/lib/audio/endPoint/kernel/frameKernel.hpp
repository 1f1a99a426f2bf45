// Features of one frame in versions for several instruction sets; all give the same values.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>
#include <cstdint>

namespace wavepitch::endPoint {

struct FrameKernel {
    /// Sum of |x - centre|.
    std::int64_t (*deviation)(const int* frame, std::size_t frameSize, int centre);
    /// Adjacent pairs of strictly opposite sign.
    int (*crossings)(const int* frame, std::size_t frameSize);
    int (*crossingsOfDoubles)(const double* frame, std::size_t frameSize);
    /// Sum of the absolute differences of an order from 1 to 5; a difference counts at most 2^31 - 1, as a
    /// sum that is kept in an int cannot tell.
    std::int64_t (*differences)(const int* frame, std::size_t frameSize, int order);
};

template <InstructionSet set>
FrameKernel frameKernelOf();

/// The version that the next call uses.
inline FrameKernel frameKernel() {
    return versionFor(instructionSet(), []<InstructionSet set> { return frameKernelOf<set>(); });
}

} // namespace wavepitch::endPoint
