#include "audio/pitchTracking/candidateTable.hpp"

#include "audio/pitchTracking/path.hpp"

#include <algorithm>

namespace wavepitch::pitchTracking {

CandidateTable::CandidateTable(const PitchMatrix& matrix, const PTPARAM& ptParam, bool sounds)
    : frames(static_cast<std::size_t>(matrix.frameNum), STRUCT_A{0, -1, nullptr}) {
    if (!sounds) return;
    std::vector<int> lags; // of all frames, one after the other
    lags.reserve(static_cast<std::size_t>(matrix.size()));
    const auto room = static_cast<std::size_t>(matrix.pfLen);
    for (int i = 0; i < matrix.frameNum; ++i) {
        const std::size_t before = lags.size();
        lags.resize(before + room);
        STRUCT_A& frame = frames[static_cast<std::size_t>(i)];
        frame.ppcLen = pf2ppc(matrix.frame(i), matrix.pfLen, ptParam, lags.data() + before);
        lags.resize(before + static_cast<std::size_t>(frame.ppcLen));
    }
    block = std::make_unique_for_overwrite<PPC[]>(lags.size());
    PPC* next = block.get();
    const int* lag = lags.data();
    for (int i = 0; i < matrix.frameNum; ++i) {
        STRUCT_A& frame = frames[static_cast<std::size_t>(i)];
        frame.ppc = next;
        for (int j = 0; j < frame.ppcLen; ++j, ++lag) *next++ = {*lag, matrix.frame(i)[*lag], -1, 0.0};
    }
}

void CandidateTable::findPath(const PTPARAM& ptParam, double* pitch) {
    const auto hasCandidates = [](const STRUCT_A& frame) { return frame.ppcLen != 0; };
    const auto last = frames.end() - 1;
    auto start = frames.begin();
    while (start < last) {
        const auto begin = std::find_if(start, last, hasCandidates);
        const auto end = std::find_if_not(begin, frames.end(), hasCandidates);
        if (begin == end) return;
        A2pitchByDp(&*begin, static_cast<int>(end - begin), ptParam, pitch + (begin - frames.begin()));
        start = end;
    }
}

} // namespace wavepitch::pitchTracking
