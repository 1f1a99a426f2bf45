#include "audio/endPoint/kernel/frameKernel.hpp"

const FrameKernel& frameKernel([[maybe_unused]] InstructionSet set) {
#if defined(__x86_64__)
    if (set == InstructionSet::avx512) return avx512FrameKernel;
    if (set == InstructionSet::avx2) return avx2FrameKernel;
#endif
    return portableFrameKernel;
}
