#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/kernel/frameKernelText.hpp"

const FrameKernel avx2FrameKernel = kernelOfWidth<32>();
