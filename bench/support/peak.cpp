#include "support/peak.hpp"

#include <algorithm>
#include <ctime>

namespace {

double termsPerSecond(double (*loop)(std::size_t), std::size_t termsPerRound) {
    constexpr std::size_t rounds = 1000000;
    double best = 0;
    for (int run = 0; run < 20; ++run) {
        const std::clock_t start = std::clock(); // processor time: other programs do not count
        [[maybe_unused]] const volatile double result = loop(rounds);
        const double taken = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        best = std::max(best, static_cast<double>(rounds * termsPerRound) / taken);
    }
    return best;
}

} // namespace

Peak measurePeak() {
    const PeakLoops loops = wavepitch::versionFor(
        wavepitch::widestInstructionSet(), []<wavepitch::InstructionSet set> { return peakLoopsOf<set>(); });
    return {termsPerSecond(loops.multiplyAdds, loops.termsPerRound),
            termsPerSecond(loops.subtractAdds, loops.termsPerRound)};
}
