#include "support/versions.hpp"

#include <cstdio>
#include <iterator>

namespace {

bool nameMissing() {
    const auto versionNum = static_cast<std::size_t>(wavepitch::widestInstructionSet()) + 1;
    for (std::size_t i = versionNum; i < std::size(kernelVersions); ++i)
        std::fprintf(stderr, "not compared: kernels for %s, which this processor lacks\n", kernelVersions[i]);
    return true;
}

/// Before anything runs.
[[maybe_unused]] const bool isNamed = nameMissing();

} // namespace
