// What the tests of the audio rooms share.
#pragma once

#include "audio/audio.hpp"

#include "support/console.hpp"
#include "support/kernelVersion.hpp"
#include "support/vectors.hpp"
#include "utility/instructionSet.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

/// Whether two numbers have the same bits; not-a-number is one value.
inline bool isSame(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
           (std::isnan(a) && std::isnan(b));
}

/// The kernels for AVX-512 as the tests compile them for AVX2, and whether the processor has that.
inline constexpr auto eightLanes = static_cast<wavepitch::InstructionSet>(3);
inline bool hasEightLanes() {
    return wavepitch::widestInstructionSet() >= wavepitch::InstructionSet::avx2;
}

/// Calls once with each set of instructions that kernels have a version for, with its name.
template <typename Call>
void withEveryKernel(Call call) {
    for (const char* name : kernelVersions) {
        const KernelVersion version(name);
        call(name);
    }
}

/// The dump of a record ("ptParam->") on one line: what stands between two of its fields becomes a space.
inline std::string onOneLine(std::string dump, const std::string& record) {
    dump = withoutLineNumber(dump);
    const std::string between = " (line N, file=../../../../c/lib/audio/audio)\n" + record;
    while (dump.find(between) != std::string::npos) dump.erase(dump.find(between) + 1, between.size() - 1);
    return dump;
}

/// The parameters that ptParamSet gives recordings of 16 bits.
inline PTPARAM trackingDefaults(int fs, PF_TYPE pfType) {
    PTPARAM p;
    cAudio::ptParamSet(&p, fs, 16, pfType, nullptr);
    return p;
}
