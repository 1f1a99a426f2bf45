// The AVX-512 version's vectors of 8 doubles, lowered to AVX2: its logic runs where AVX-512 does not.
#define WAVEPITCH_VECTOR_BYTES 64
#include "audio/pitchFunction/kernel/versionText.hpp"

namespace pitchFunctionKernel {

extern const Version eightLanes;
const Version eightLanes = {workSize, ofDoubles, ofInts, flipInts, removeMean};

} // namespace pitchFunctionKernel
