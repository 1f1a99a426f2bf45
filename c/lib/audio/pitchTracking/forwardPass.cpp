#include "audio/pitchTracking/forwardPass.hpp"

#include "audio/waveform/synthesis.hpp"
#include "utility/interruption.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace wavepitch::pitchTracking {

using std::size_t;

Scale::Scale(const PTPARAM& ptParam) : method(ptParam.dpMethod) {
    if (method != 2) return;
    semitoneTenths.resize(static_cast<size_t>(std::max(ptParam.pfLen, 1)));
    for (size_t lag = 1; lag < semitoneTenths.size(); ++lag) {
        const float frequency = static_cast<float>(ptParam.fs) / static_cast<float>(lag);
        semitoneTenths[lag] = myRound(10.0F * cAudioSynthesis::freq2pitch(frequency));
    }
}

CostTable::CostTable(int pfLen, const Transition& transition)
    : reach(static_cast<size_t>(std::max(pfLen, 1)) + pathStepBlock), cost(2 * reach) {
    for (size_t i = 0; i < cost.size(); ++i) {
        const double distance = std::abs(static_cast<double>(i) - static_cast<double>(reach));
        const double counted = transition.squared ? distance * distance : distance;
        cost[i] = static_cast<double>(transition.signedWeight * static_cast<float>(counted));
    }
}

ForwardPass::ForwardPass(const PTPARAM& parameters)
    : ptParam(parameters), scale(parameters), transition{.signedWeight = parameters.pfType == PF_AMDF
                                                                             ? parameters.indexDiffWeight
                                                                             : -parameters.indexDiffWeight,
                                                         .squared = parameters.dpPosDiffOrder != 1,
                                                         .lowIsBetter = parameters.pfType == PF_AMDF},
      bestPredecessors(pathStep()) {}

void ForwardPass::advance(const int* lag, const double* value, size_t count) {
    std::swap(previous, current);
    setPositions(lag, count);
    if (count == 0) return;
    const bool begins = previous.length == 0;
    if (begins)
        std::fill_n(prevIndex.begin(), count, -1);
    else
        findPredecessors();
    for (size_t j = 0; j < count; ++j) {
        const double local = static_cast<double>(ptParam.pfWeight) * value[j];
        current.total[j] = begins ? local : static_cast<double>(best[j]) + local;
    }
    std::fill(current.total.begin() + static_cast<std::ptrdiff_t>(count), current.total.end(),
              current.total[count - 1]);
}

void ForwardPass::setPositions(const int* lag, size_t count) {
    const size_t room = (count + pathStepBlock - 1) / pathStepBlock * pathStepBlock;
    current.length = count;
    current.total.resize(room);
    current.position.resize(room);
    if (prevIndex.size() < room) {
        prevIndex.resize(room);
        best.resize(room);
    }
    current.areConsecutive = true;
    for (size_t j = 0; j < count; ++j) {
        current.position[j] = scale(lag[j]);
        if (current.position[j] != current.position[0] + static_cast<double>(j))
            current.areConsecutive = false;
    }
    if (count > 0)
        std::fill(current.position.begin() + static_cast<std::ptrdiff_t>(count), current.position.end(),
                  current.position[count - 1]);
}

void ForwardPass::findPredecessors() {
    constexpr size_t atATime = 1 << 24; // pairs of candidates
    const PathStep step{previous.view(), current.view(), transition, tabledCost()};
    const size_t blocks = std::max<size_t>(1, atATime / step.prev.len / pathStepBlock);
    for (size_t first = 0; first < step.current.len; first += blocks * pathStepBlock) {
        utility::askForInterruption();
        PathStep part = step;
        part.current = {step.current.total + first, step.current.position + first,
                        std::min(step.current.len - first, blocks * pathStepBlock)};
        if (step.cost) part.cost += first;
        bestPredecessors(part, best.data() + first, prevIndex.data() + first);
    }
}

/// Costs are looked up between consecutive lags, which is what frames have when every lag is a candidate.
const double* ForwardPass::tabledCost() {
    if (!areConsecutiveLags(current) || !areConsecutiveLags(previous)) return nullptr;
    if (!table) table.emplace(ptParam.pfLen, transition);
    return table->at(static_cast<std::ptrdiff_t>(current.position[0] - previous.position[0]));
}

bool ForwardPass::areConsecutiveLags(const Column& column) const {
    return ptParam.dpMethod == 1 && column.length > 1 && column.areConsecutive && column.position[0] >= 0 &&
           column.position[column.length - 1] < ptParam.pfLen;
}

} // namespace wavepitch::pitchTracking
