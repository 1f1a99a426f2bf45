// The kernels for any processor: vectors of 2 doubles, which compilers split where a processor has none.
#define WAVEPITCH_VECTOR_BYTES 16
#include "audio/pitchFunction/kernel/versionText.hpp"

const pitchFunctionKernel::Version pitchFunctionKernel::portable = {workSize, ofDoubles, ofInts, flipInts,
                                                                    removeMean};
