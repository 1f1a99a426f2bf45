#include "audio/pitchTracking/kernel/pathKernelText.hpp"

void pathStepAvx512(const PathStep& step) {
    pathStep<64>(step);
}
