#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/kernel/frameKernelText.hpp"

const FrameKernel avx512FrameKernel = kernelOfWidth<64>();
