#include "utility/vector/kernel/intMedian.hpp"

IntMedian intMedian([[maybe_unused]] InstructionSet set) {
#if defined(__x86_64__)
    if (set == InstructionSet::avx512) return avx512IntMedian;
    if (set == InstructionSet::avx2) return avx2IntMedian;
#endif
    return portableIntMedian;
}
