// The candidates of one frame after the other, with the work that all have in common done once.
#pragma once

#include "audio/pitchTracking/lagRange.hpp"
#include "audio/pitchTracking/openPath.hpp"

#include <vector>

namespace wavepitch::pitchTracking {

/// Picks candidates as pf2ppc says.
class CandidatePicker {
public:
    /// @param ptParam  as for pf2ppc; it must outlive the picker.
    explicit CandidatePicker(const PTPARAM& ptParam);

    /// @param lags  receives them; room for pfLen ints.
    /// @return      how many there are.
    int pick(const double* pf, int pfLen, int* lags) const;

    /// The same with their values. They hold until the next call.
    FrameCandidates of(const double* pf, int pfLen);

private:
    const PTPARAM& ptParam;
    LagRange range;
    std::vector<int> lag;
    std::vector<double> value;
};

} // namespace wavepitch::pitchTracking
