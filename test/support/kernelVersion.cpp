#include "support/kernelVersion.hpp"

#include "utility/instructionSet.hpp"

#include <algorithm>
#include <atomic>
#include <iterator>

namespace {

std::atomic<wavepitch::InstructionSet> chosen = wavepitch::InstructionSet::avx512;

} // namespace

void chooseKernelVersion(const std::string& name) {
    const auto* const known = std::find(std::begin(kernelVersions), std::end(kernelVersions), name);
    const auto* const widest = std::end(kernelVersions) - 1;
    chosen = static_cast<wavepitch::InstructionSet>(std::min(known, widest) - std::begin(kernelVersions));
}

/// In place of the library's own, which the linker then leaves out.
wavepitch::InstructionSet wavepitch::instructionSet() {
    return std::min(chosen.load(), widestInstructionSet());
}
