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

#include "audio/failure.hpp"
#include "audio/pitchTracking/forwardPass.hpp"
#include "audio/pitchTracking/pathEnd.hpp"
#include "utility/fatal.hpp"

#include <cstddef>
#include <vector>

namespace wavepitch::pitchTracking {

int bestEnd(const std::vector<double>& totals, std::size_t count, PF_TYPE pfType) {
    if (pfType != PF_AMDF && pfType != PF_ACF)
        myExitFormatted("Unknown ptParam.pfType=%d (line %d of file %s)", static_cast<int>(pfType), __LINE__,
                        audioSourcePath);
    if (count < 1) return -1;
    // The running best is narrowed to single precision, the totals are not: where narrowing has made it worse
    // than the total it stands for, a later total equal to that one takes over.
    std::size_t chosen = 0;
    auto best = static_cast<float>(totals[0]);
    for (std::size_t j = 1; j < count; ++j) {
        const auto running = static_cast<double>(best);
        if (pfType == PF_AMDF ? totals[j] < running : totals[j] > running) {
            chosen = j;
            best = static_cast<float>(totals[j]);
        }
    }
    return static_cast<int>(chosen);
}

} // namespace wavepitch::pitchTracking

namespace {

using wavepitch::pitchTracking::bestEnd;
using wavepitch::pitchTracking::ForwardPass;

/// Sets totalDist and prevIndex of all candidates of the run.
void runForward(ForwardPass& pass, STRUCT_A* A, int frameNum) {
    std::vector<int> lag;
    std::vector<double> value;
    for (STRUCT_A* frame = A; frame != A + frameNum; ++frame) {
        lag.clear();
        value.clear();
        for (int j = 0; j < frame->ppcLen; ++j) {
            lag.push_back(frame->ppc[j].index);
            value.push_back(frame->ppc[j].pfValue);
        }
        pass.advance(lag.data(), value.data(), lag.size());
        for (std::size_t j = 0; j < lag.size(); ++j) {
            frame->ppc[j].prevIndex = pass.predecessors()[j];
            frame->ppc[j].totalDist = pass.totals()[j];
        }
    }
}

} // namespace

template <typename T>
void A2pitchByDp(STRUCT_A* A, int frameNum, const PTPARAM& ptParam, T* pitch) {
    if (frameNum < 1) return;
    ForwardPass pass(ptParam);
    runForward(pass, A, frameNum);
    int chosen = bestEnd(pass.totals(), pass.count(), ptParam.pfType);
    for (int i = frameNum - 1; i >= 0 && chosen >= 0; --i) {
        const PPC& candidate = A[i].ppc[chosen];
        A[i].bestIndex = candidate.index;
        pitch[i] = wavepitch::pitchTracking::pitchOfLag<T>(ptParam.fs, candidate.index);
        chosen = candidate.prevIndex;
    }
}

template void A2pitchByDp(STRUCT_A*, int, const PTPARAM&, double*);
template void A2pitchByDp(STRUCT_A*, int, const PTPARAM&, int*);
