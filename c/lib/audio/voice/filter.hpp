// Low-pass filters without delay: a sinc under a Hann window.
#pragma once

#include "audio/voice/kernel/filter.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wavepitch::voice {

/// The centre of a symmetric filter and the taps of one side, nearest first; all together sum up to 1.
using Taps = std::vector<float>;

/// @param cutoff  where half the amplitude passes, as a fraction of the sample rate: above 0, at most 0.5.
/// @param reach   taps at each side of the centre.
Taps lowPass(double cutoff, std::size_t reach);

/// A filter whose outputs lie several samples apart.
class Filter {
public:
    /// @param outputStep  samples from output to output.
    Filter(Taps filterTaps, std::size_t outputStep);

    std::size_t reach() const { return taps.size() - 1; }
    std::size_t step() const { return phases.size(); }

    /// @param read   called as read(first, step, num, out): hands out num samples from first on, step apart.
    ///               Nothing is read before centre - reach(), nor from centre + num * step() + reach() on.
    /// @param centre the sample in the centre of the first output.
    /// @param num    of outputs.
    /// @return       the outputs, until the next call.
    template <typename Read>
    const float* run(const Read& read, std::int64_t centre, std::size_t num) {
        const std::size_t blocks = (num + filterBlock - 1) / filterBlock * filterBlock;
        const std::size_t spread = 2 * reach() / step();
        outputs.resize(blocks);
        for (std::size_t p = 0; p < step(); ++p) {
            phases[p].resize(blocks + spread);
            read(centre - static_cast<std::int64_t>(reach()) + static_cast<std::int64_t>(p), step(),
                 num + spread, phases[p].data());
        }
        runKernel(blocks);
        return outputs.data();
    }

private:
    void runKernel(std::size_t blocks);

    Taps taps;
    std::vector<std::vector<float>> phases; // phase p holds the samples p, p + step, ...
    std::vector<const float*> phaseStarts;
    std::vector<float> outputs;
};

} // namespace wavepitch::voice
