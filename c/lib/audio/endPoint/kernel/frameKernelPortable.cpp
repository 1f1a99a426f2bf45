#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/kernel/frameKernelText.hpp"

const FrameKernel portableFrameKernel = kernelOfWidth<16>();
