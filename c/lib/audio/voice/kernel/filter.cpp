#include "audio/voice/kernel/filter.hpp"
#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

using Floats = Lanes<float, ownBytes>;
constexpr std::size_t lanes = ownBytes / sizeof(float);
constexpr std::size_t group = 4; // registers of outputs at a time
static_assert(wavepitch::voice::filterBlock % (group * lanes) == 0);

/// Where the samples of consecutive outputs lie, for one place of the filter.
inline const float* neighbours(const wavepitch::voice::Filtering& filtering, std::size_t place) {
    return filtering.phases[place % filtering.step] + place / filtering.step;
}

} // namespace

template <wavepitch::InstructionSet set>
void wavepitch::voice::filterOf(const Filtering& filtering) {
    for (std::size_t i = 0; i < filtering.num; i += group * lanes) {
        const float* centre = neighbours(filtering, filtering.reach) + i;
        Floats sums[group];
        for (std::size_t g = 0; g < group; ++g)
            sums[g] = filtering.taps[0] * load<float, ownBytes>(centre + g * lanes);
        for (std::size_t k = 1; k <= filtering.reach; ++k) {
            const float* earlier = neighbours(filtering, filtering.reach - k) + i;
            const float* later = neighbours(filtering, filtering.reach + k) + i;
#pragma GCC unroll 4
            for (std::size_t g = 0; g < group; ++g)
                sums[g] += filtering.taps[k] * (load<float, ownBytes>(earlier + g * lanes) +
                                                load<float, ownBytes>(later + g * lanes));
        }
        __builtin_memcpy(filtering.out + i, sums, sizeof sums);
    }
}

template void wavepitch::voice::filterOf<ownSet>(const wavepitch::voice::Filtering&);
