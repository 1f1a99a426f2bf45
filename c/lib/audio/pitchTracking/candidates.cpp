#include "audio/pitchTracking/candidates.hpp"

#include "audio/failure.hpp"
#include "audio/pitchTracking/lagRange.hpp"
#include "utility/fatal.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <numeric>

#include "mex.h"

namespace {

/// The middles of the valleys of a function; those of its peaks where the order is exchanged.
///
/// @param above  whether the first value lies strictly above the second.
template <typename T, typename Above>
int localMinima(const T* pf, int pfLen, Above above, int* lags) {
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

template <typename T>
int localExtrema(const T* pf, int pfLen, PF_TYPE pfType, int* lags) {
    if (pfType == PF_AMDF)
        return localMinima(
            pf, pfLen, [](T a, T b) { return a > b; }, lags);
    if (pfType == PF_ACF)
        return localMinima(
            pf, pfLen, [](T a, T b) { return a < b; }, lags);
    myExitFormatted("Unknown ptParam.pfType=%d (line %d of file %s)", static_cast<int>(pfType), __LINE__,
                    audioSourcePath);
}

int allLags(int pfLen, int* lags) {
    const int count = std::max(pfLen, 0);
    std::iota(lags, lags + count, 0);
    return count;
}

} // namespace

template <typename T>
int pf2ppc(const T* pf, int pfLen, const PTPARAM& ptParam, int* ppcIndex) {
    const int count = ptParam.dpUseLocalOptim == 1 ? localExtrema(pf, pfLen, ptParam.pfType, ppcIndex)
                                                   : allLags(pfLen, ppcIndex);
    const auto range = wavepitch::pitchTracking::lagRange(ptParam);
    const int* end = std::remove_if(ppcIndex, ppcIndex + count, [&](int lag) {
        return lag == 0 || lag < range.first || lag > range.last;
    });
    return static_cast<int>(end - ppcIndex);
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
