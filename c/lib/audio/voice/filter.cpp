#include "audio/voice/filter.hpp"

#include <cmath>
#include <numbers>
#include <utility>

namespace wavepitch::voice {

Taps lowPass(double cutoff, std::size_t reach) {
    using std::numbers::pi;
    std::vector<double> taps(reach + 1, 2 * cutoff);
    double sum = taps[0];
    for (std::size_t k = 1; k <= reach; ++k) {
        const auto at = static_cast<double>(k);
        const double window = 0.5 + 0.5 * std::cos(pi * at / static_cast<double>(reach + 1));
        taps[k] = window * std::sin(2 * pi * cutoff * at) / (pi * at);
        sum += 2 * taps[k];
    }
    Taps scaled(taps.size());
    for (std::size_t k = 0; k <= reach; ++k) scaled[k] = static_cast<float>(taps[k] / sum);
    return scaled;
}

Filter::Filter(Taps filterTaps, std::size_t outputStep)
    : taps(std::move(filterTaps)), phases(outputStep), phaseStarts(outputStep) {}

void Filter::runKernel(std::size_t blocks) {
    for (std::size_t p = 0; p < phases.size(); ++p) phaseStarts[p] = phases[p].data();
    filterKernel()({.phases = phaseStarts.data(),
                    .step = step(),
                    .taps = taps.data(),
                    .reach = reach(),
                    .num = blocks,
                    .out = outputs.data()});
}

} // namespace wavepitch::voice
