// The kernels for AVX-512 F, BW, DQ and VL: vectors of 8 doubles. This file is compiled with its own flags.
#define WAVEPITCH_VECTOR_BYTES 64
#include "audio/pitchFunction/kernel/versionText.hpp"

const pitchFunctionKernel::Version pitchFunctionKernel::avx512 = {workSize, ofDoubles, ofInts, flipInts,
                                                                  removeMean};
