#include "audio/pitchTracking/candidates.hpp"

#include "audio/failure.hpp"
#include "audio/pitchTracking/candidatePicker.hpp"
#include "utility/fatal.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <numeric>

#include "mex.h"

namespace {

/// The middles of the valleys of a function; those of its peaks where the order is exchanged.
///
/// @param above  whether the first value lies strictly above the second.
template <typename Above>
int localMinima(const double* pf, int pfLen, Above above, int* lags) {
    int count = 0;
    int start = 0; // where the bottom begins
    bool falling = false;
    for (int i = 1; i < pfLen; ++i) {
        if (above(pf[i - 1], pf[i])) {
            start = i;
            falling = true;
        }
        if (above(pf[i], pf[i - 1]) && falling) {
            lags[count++] = std::midpoint(start, i);
            falling = false;
        }
    }
    return count;
}

int localExtrema(const double* pf, int pfLen, PF_TYPE pfType, int* lags) {
    if (pfType == PF_AMDF)
        return localMinima(
            pf, pfLen, [](double a, double b) { return a > b; }, lags);
    if (pfType == PF_ACF)
        return localMinima(
            pf, pfLen, [](double a, double b) { return a < b; }, lags);
    myExitFormatted("Unknown ptParam.pfType=%d (line %d of file %s)", static_cast<int>(pfType), __LINE__,
                    audioSourcePath);
}

} // namespace

namespace wavepitch::pitchTracking {

CandidatePicker::CandidatePicker(const PTPARAM& parameters)
    : ptParam(parameters), range(lagRange(parameters)) {}

int CandidatePicker::pick(const double* pf, int pfLen, int* lags) const {
    const int first = std::max(range.first, 1);
    const int last = std::min(range.last, pfLen - 1);
    if (ptParam.dpUseLocalOptim != 1) {
        if (first > last) return 0;
        std::iota(lags, lags + (last - first + 1), first);
        return last - first + 1;
    }
    const int count = localExtrema(pf, pfLen, ptParam.pfType, lags);
    const auto isOutside = [&](int candidate) { return candidate < first || candidate > last; };
    return static_cast<int>(std::remove_if(lags, lags + count, isOutside) - lags);
}

FrameCandidates CandidatePicker::of(const double* pf, int pfLen) {
    lag.resize(static_cast<std::size_t>(pfLen));
    value.resize(lag.size());
    const auto count = static_cast<std::size_t>(pick(pf, pfLen, lag.data()));
    for (std::size_t j = 0; j < count; ++j) value[j] = pf[lag[j]];
    return {lag.data(), value.data(), count, pfLen > 0 ? pf[0] : 0.0};
}

} // namespace wavepitch::pitchTracking

template <typename T>
int pf2ppc(const T* pf, int pfLen, const PTPARAM& ptParam, int* ppcIndex) {
    return wavepitch::pitchTracking::CandidatePicker(ptParam).pick(pf, pfLen, ppcIndex);
}

template int pf2ppc(const double*, int, const PTPARAM&, int*);

void cAudioPitchCandidates::printA(const STRUCT_A* A, int frameNum) {
    for (int i = 0; i < frameNum; ++i) {
        mexPrintf("A[%d].ppcLen=%d\n", i, A[i].ppcLen);
        for (int j = 0; j < A[i].ppcLen; ++j)
            mexPrintf("\tppc[%d]: pfValue=%d, totalDist=%d\n", j, truncateToInt(A[i].ppc[j].pfValue),
                      truncateToInt(A[i].ppc[j].totalDist));
    }
}
