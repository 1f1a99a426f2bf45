#include "audio/pitchFunction/kernel/kernel.hpp"

#include "utility/rounding.hpp"

#include <algorithm>

namespace wavepitch::pitchFunction {

Task taskOf(int frameSize, int pfLen, bool acf, int method) {
    const auto n = static_cast<std::size_t>(std::max(frameSize, 0));
    const auto stride = static_cast<std::size_t>(std::max(pfLen, 0));
    Task task{.frameSize = n,
              .lags = std::min(n, stride),
              .maxTerms = n,
              .stride = stride,
              .acf = acf,
              .average = method == 2,
              .flip = false,
              .removeMean = false};
    if (method == 3) task.maxTerms = n - task.lags;
    if (method == 4) task.maxTerms = task.lags;
    return task;
}

Version version() {
    return versionFor(instructionSet(), []<InstructionSet set> { return versionOf<set>(); });
}

int roundedMean(std::int64_t sum, std::size_t n) {
    return myRound(static_cast<float>(static_cast<double>(sum) / static_cast<double>(n)));
}

} // namespace wavepitch::pitchFunction
