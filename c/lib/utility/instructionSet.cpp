#include "utility/instructionSet.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace wavepitch {

InstructionSet widestInstructionSet() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl"))
        return InstructionSet::avx512;
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) return InstructionSet::avx2;
#endif
    return InstructionSet::portable;
}

InstructionSet instructionSet() {
    const InstructionSet widest = widestInstructionSet();
    const char* forced = std::getenv("WAVEPITCH_KERNEL");
    if (!forced) return widest;
    if (std::strcmp(forced, "portable") == 0) return InstructionSet::portable;
    if (std::strcmp(forced, "avx2") == 0) return std::min(widest, InstructionSet::avx2);
    return widest;
}

} // namespace wavepitch
