// Which of a kernel's versions a call runs on: the widest that the processor has.
//
// A kernel is one text, a .cpp in a folder kernel/, that the build compiles once for each instruction set,
// with that set's flags (utility/kernel/version.hpp). It defines a function template over InstructionSet,
// declared in a header beside it, and instantiates it for the set that it is compiled for.
#pragma once

namespace wavepitch {

/// The versions that kernels come in, narrowest first.
enum class InstructionSet { portable, avx2, avx512 };

/// The widest set that this processor and its operating system offer (avx2 stands for AVX2 with FMA, avx512
/// for AVX-512 F, BW, DQ and VL).
InstructionSet widestInstructionSet();

/// The set that kernels run on: the widest. Every set gives the same results; tests and measurements link a
/// definition of their own, which lets them choose.
InstructionSet instructionSet();

/// The version of a kernel for a set that the processor has.
///
/// @param of  called as of.operator()<set>(): returns the kernel's instance for that set.
template <typename Of>
auto versionFor([[maybe_unused]] InstructionSet set, Of of) {
#if defined(__x86_64__)
    if (set == InstructionSet::avx512) return of.template operator()<InstructionSet::avx512>();
    if (set == InstructionSet::avx2) return of.template operator()<InstructionSet::avx2>();
#endif
    return of.template operator()<InstructionSet::portable>();
}

} // namespace wavepitch
