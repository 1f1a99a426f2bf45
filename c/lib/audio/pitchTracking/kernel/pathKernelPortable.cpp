#include "audio/pitchTracking/kernel/pathKernelText.hpp"

void pathStepPortable(const PathStep& step) {
    pathStep<16>(step);
}
