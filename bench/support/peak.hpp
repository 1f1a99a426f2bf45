// What one core can do at most, measured: the yardstick of the kernels.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

/// Terms per second in double, with the widest vectors that the processor has.
struct Peak {
    double multiplyAdd; // a multiplication and an addition each
    double subtractAdd; // a difference, its absolute value and an addition each
};

/// The best of several runs; takes about 0.2 s.
Peak measurePeak();

/// The loops that it measures, one set for each instruction set; each returns a sum of no meaning.
struct PeakLoops {
    double (*multiplyAdds)(std::size_t rounds);
    double (*subtractAdds)(std::size_t rounds);
    std::size_t termsPerRound;
};

template <wavepitch::InstructionSet set>
PeakLoops peakLoopsOf();
