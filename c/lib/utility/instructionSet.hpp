// Which of a kernel's versions a call runs on: the widest that the processor has.
#pragma once

/// The versions that kernels come in, narrowest first. A kernel that lacks one uses the next narrower.
enum class InstructionSet { portable, avx2, avx512 };

/// The widest set that this processor and its operating system offer (avx2 stands for AVX2 with FMA, avx512
/// for AVX-512 F, BW, DQ and VL).
InstructionSet widestInstructionSet();

/// The set that the next call uses: the widest, or the one that the environment variable WAVEPITCH_KERNEL
/// names ("portable", "avx2", "avx512"), as far as the processor has it. Every set gives the same results;
/// the variable is there for tests and measurements. It is read at every call.
InstructionSet instructionSet();
