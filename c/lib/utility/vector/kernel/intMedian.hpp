// The median of ints in versions for several instruction sets; all give the same value.
#pragma once

#include "utility/instructionSet.hpp"

/// vecMedian for int with n of at least 1.
using IntMedian = int (*)(const int* vec, int n);

int portableIntMedian(const int* vec, int n);
#if defined(__x86_64__)
int avx2IntMedian(const int* vec, int n);
int avx512IntMedian(const int* vec, int n);
#endif

/// The version for an instruction set that the processor has: for callers that take many medians.
IntMedian intMedian(InstructionSet set);
