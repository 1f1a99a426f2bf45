// The kernels for AVX2 with FMA: vectors of 4 doubles. This file is compiled with its own flags.
#define WAVEPITCH_VECTOR_BYTES 32
#include "audio/pitchFunction/kernel/versionText.hpp"

const pitchFunctionKernel::Version pitchFunctionKernel::avx2 = {workSize, ofDoubles, ofInts, flipInts,
                                                                removeMean};
