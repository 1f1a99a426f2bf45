// The best path through the candidates of a run of frames, by dynamic programming:
//   local cost     a candidate's pfWeight * pfValue
//   transition     indexDiffWeight * distance between the candidates of two consecutive frames, in lags or in
//                  tenths of a semitone, absolute or squared
//   forward pass   each candidate's total: its local cost, and the best of the totals before it with the cost
//                  of the transition (added for the AMDF, where low is good, taken away for the ACF)
//   back-track     from the best total of the last frame through the best predecessors
// Local costs are in double; the totals that compete for a successor are narrowed to single precision, and of
// equals the first wins.
//
// Source: R. Bellman, Dynamic Programming, Princeton University Press, 1957; for pitch: H. Ney, "Dynamic
// programming algorithm for optimal estimation of speech parameter contours", IEEE Transactions on Systems,
// Man, and Cybernetics 13(3), 1983.
#include "audio/pitchTracking/path.hpp"

#include "audio/constants.hpp"
#include "audio/failure.hpp"
#include "audio/pitchTracking/fixedPoint.hpp"
#include "audio/pitchTracking/kernel/pathStep.hpp"
#include "audio/waveform/synthesis.hpp"
#include "utility/fatal.hpp"
#include "utility/instructionSet.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

namespace {

using std::size_t;
using wavepitch::pitchTracking::PathStep;
using wavepitch::pitchTracking::pathStepBlock;
using wavepitch::pitchTracking::prevBlock;

double localCost(const PTPARAM& ptParam, const PPC& candidate) {
    return static_cast<double>(ptParam.pfWeight) * candidate.pfValue;
}

/// Where a lag stands on the scale that distances are measured on: whole numbers, held as double.
class Scale {
public:
    explicit Scale(const PTPARAM& ptParam) : method(ptParam.dpMethod) {
        if (method != 2) return;
        semitoneTenths.resize(static_cast<size_t>(std::max(ptParam.pfLen, 1)));
        for (size_t lag = 1; lag < semitoneTenths.size(); ++lag) {
            const float frequency = static_cast<float>(ptParam.fs) / static_cast<float>(lag);
            semitoneTenths[lag] = myRound(10.0F * cAudioSynthesis::freq2pitch(frequency));
        }
    }

    double operator()(int lag) const {
        if (method == 1) return lag;
        const bool inside = lag >= 0 && static_cast<size_t>(lag) < semitoneTenths.size();
        return inside ? semitoneTenths[static_cast<size_t>(lag)] : 0.0;
    }

private:
    int method;
    std::vector<double> semitoneTenths;
};

/// What the forward pass needs of a frame, as arrays.
struct Column {
    size_t length = 0;
    std::vector<double> total;
    std::vector<double> position; // valid up to a whole block of the kernel
    bool isRun = false;           // the positions are consecutive integers

    void setPositions(const STRUCT_A& frame, const Scale& scale) {
        length = static_cast<size_t>(std::max(frame.ppcLen, 0));
        total.resize(length);
        position.resize((length + pathStepBlock - 1) / pathStepBlock * pathStepBlock);
        isRun = true;
        for (size_t j = 0; j < length; ++j) {
            position[j] = scale(frame.ppc[j].index);
            isRun = isRun && position[j] == position[0] + static_cast<double>(j);
        }
    }
};

/// The penalties between lags below pfLen, by distance.
class PenaltyTable {
public:
    PenaltyTable(const PTPARAM& ptParam, float signedWeight)
        : reach(static_cast<size_t>(std::max(ptParam.pfLen, 1)) + pathStepBlock), penalty(2 * reach) {
        for (size_t i = 0; i < penalty.size(); ++i) {
            const double distance = std::abs(static_cast<double>(i) - static_cast<double>(reach));
            const double counted = ptParam.dpPosDiffOrder == 1 ? distance : distance * distance;
            penalty[i] = static_cast<double>(signedWeight * static_cast<float>(counted));
        }
    }

    /// The penalty of a distance; those of the distances around it lie around it.
    const double* at(std::ptrdiff_t distance) const {
        return penalty.data() + static_cast<std::ptrdiff_t>(reach) + distance;
    }

private:
    size_t reach;
    std::vector<double> penalty;
};

class ForwardPass {
public:
    explicit ForwardPass(const PTPARAM& parameters)
        : ptParam(parameters), scale(parameters), bestPredecessors(wavepitch::pitchTracking::pathStep()),
          lowIsBetter(parameters.pfType == PF_AMDF),
          signedWeight(lowIsBetter ? parameters.indexDiffWeight : -parameters.indexDiffWeight) {}

    /// Sets totalDist and prevIndex of all candidates of the run.
    void run(STRUCT_A* A, int frameNum) {
        for (int i = 0; i < frameNum; ++i) {
            std::swap(previous, current);
            current.setPositions(A[i], scale);
            if (previous.length == 0)
                begin(A[i]);
            else
                extend(A[i]);
        }
    }

private:
    void begin(STRUCT_A& frame) {
        for (size_t j = 0; j < current.length; ++j) {
            PPC& candidate = frame.ppc[j];
            candidate.prevIndex = -1;
            candidate.totalDist = current.total[j] = localCost(ptParam, candidate);
        }
    }

    void extend(STRUCT_A& frame) {
        best.resize(current.position.size());
        prevIndex.resize(current.position.size());
        bestPrevTotal.resize(previous.length / prevBlock + 1);
        const double* tabled = tabledPenalty();
        bestPredecessors({.prevTotal = previous.total.data(),
                          .prevPosition = previous.position.data(),
                          .prevLen = previous.length,
                          .position = current.position.data(),
                          .len = current.length,
                          .best = best.data(),
                          .prevIndex = prevIndex.data(),
                          .signedPenalty = tabled,
                          .shift = tabled ? shift() : 0,
                          .nearIsBetter = lowIsBetter ? signedWeight >= 0 : signedWeight <= 0,
                          .bestPrevTotal = bestPrevTotal.data(),
                          .signedWeight = signedWeight,
                          .squared = ptParam.dpPosDiffOrder != 1,
                          .lowIsBetter = lowIsBetter});
        for (size_t j = 0; j < current.length; ++j) {
            PPC& candidate = frame.ppc[j];
            candidate.prevIndex = prevIndex[j];
            candidate.totalDist = current.total[j] =
                static_cast<double>(best[j]) + localCost(ptParam, candidate);
        }
    }

    /// Penalties are looked up between two runs of lags, which is what frames have when every lag is a
    /// candidate.
    const double* tabledPenalty() {
        if (!isRunOfLags(current) || !isRunOfLags(previous)) return nullptr;
        if (!table) table.emplace(ptParam, signedWeight);
        return table->at(shift());
    }

    std::ptrdiff_t shift() const {
        return static_cast<std::ptrdiff_t>(current.position[0] - previous.position[0]);
    }

    bool isRunOfLags(const Column& column) const {
        return ptParam.dpMethod == 1 && column.length > 1 && column.isRun && column.position[0] >= 0 &&
               column.position[column.length - 1] < ptParam.pfLen;
    }

    const PTPARAM& ptParam;
    Scale scale;
    void (*bestPredecessors)(const PathStep&);
    bool lowIsBetter;
    float signedWeight;
    std::optional<PenaltyTable> table; // once it is needed
    Column previous;
    Column current;
    std::vector<float> best;
    std::vector<int> prevIndex;
    std::vector<double> bestPrevTotal;
};

/// The last frame's best candidate; -1 if there is none.
int bestEnd(const STRUCT_A& frame, PF_TYPE pfType) {
    if (pfType != PF_AMDF && pfType != PF_ACF)
        myExitFormatted("Unknown ptParam.pfType=%d (line %d of file %s)", static_cast<int>(pfType), __LINE__,
                        audioSourcePath);
    if (frame.ppcLen < 1) return -1;
    // The running best is narrowed to single precision, the totals are not: where narrowing has made it worse
    // than the total it stands for, a later total equal to that one takes over.
    int chosen = 0;
    auto best = static_cast<float>(frame.ppc[0].totalDist);
    for (int j = 1; j < frame.ppcLen; ++j) {
        const double total = frame.ppc[j].totalDist;
        const auto running = static_cast<double>(best);
        if (pfType == PF_AMDF ? total < running : total > running) {
            chosen = j;
            best = static_cast<float>(total);
        }
    }
    return chosen;
}

template <typename T>
T pitchOfLag(int fs, int lag) {
    const double pitch = std::log(static_cast<double>(fs) / lag / 440.0) * 12.0 / lnTwo + 69.0;
    return asElement<T>(static_cast<double>(fixedPointScale<T>) * pitch);
}

template <typename T>
void backTrack(STRUCT_A* A, int frameNum, const PTPARAM& ptParam, T* pitch) {
    int chosen = bestEnd(A[frameNum - 1], ptParam.pfType);
    for (int i = frameNum - 1; i >= 0 && chosen >= 0; --i) {
        const PPC& candidate = A[i].ppc[chosen];
        A[i].bestIndex = candidate.index;
        pitch[i] = pitchOfLag<T>(ptParam.fs, candidate.index);
        chosen = candidate.prevIndex;
    }
}

} // namespace

template <typename T>
void A2pitchByDp(STRUCT_A* A, int frameNum, const PTPARAM& ptParam, T* pitch) {
    if (frameNum < 1) return;
    ForwardPass(ptParam).run(A, frameNum);
    backTrack(A, frameNum, ptParam, pitch);
}

template void A2pitchByDp(STRUCT_A*, int, const PTPARAM&, double*);
template void A2pitchByDp(STRUCT_A*, int, const PTPARAM&, float*);
template void A2pitchByDp(STRUCT_A*, int, const PTPARAM&, int*);
