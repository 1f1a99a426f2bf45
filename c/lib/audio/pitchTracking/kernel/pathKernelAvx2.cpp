#include "audio/pitchTracking/kernel/pathKernelText.hpp"

void pathStepAvx2(const PathStep& step) {
    pathStep<32>(step);
}
