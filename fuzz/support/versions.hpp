// The kernels' versions, side by side.
#pragma once

#include "support/kernelVersion.hpp"
#include "utility/instructionSet.hpp"

/// Calls once with each version that the processor has, narrowest first, with its name. Those that it lacks
/// are named on the console once, as not compared.
template <typename Call>
void withEveryVersion(Call call) {
    for (int i = 0; i <= static_cast<int>(wavepitch::widestInstructionSet()); ++i) {
        const KernelVersion version(kernelVersions[i]);
        call(std::string(kernelVersions[i]));
    }
}
