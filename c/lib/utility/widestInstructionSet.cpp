#include "utility/instructionSet.hpp"

wavepitch::InstructionSet wavepitch::widestInstructionSet() {
#if defined(__x86_64__)
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl"))
        return InstructionSet::avx512;
    if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma")) return InstructionSet::avx2;
#endif
    return InstructionSet::portable;
}
