// The path search as plain loops: what its kernels must equal.
#pragma once

#include "audio/audio.hpp"
#include "support/vectors.hpp"
#include "utility/rounding.hpp"

using Frame = std::vector<PPC>;

/// Where a lag stands on the scale that distances are measured on.
inline double scaled(int lag, const PTPARAM& p) {
    if (p.dpMethod == 1) return lag;
    if (p.dpMethod != 2 || lag < 1 || lag >= p.pfLen) return 0;
    return myRound(10.0F * cAudio::freq2pitch(static_cast<float>(p.fs) / static_cast<float>(lag)));
}

inline double cost(const PPC& a, const PPC& b, const PTPARAM& p) {
    const double distance = std::abs(scaled(a.index, p) - scaled(b.index, p));
    const double counted = p.dpPosDiffOrder == 1 ? distance : distance * distance;
    return static_cast<double>(p.indexDiffWeight * static_cast<float>(counted));
}

inline double narrowed(double x) {
    return static_cast<double>(static_cast<float>(x));
}

/// The search by trying every transition: sets totals and predecessors, and returns the lag chosen for each
/// frame, -1 for none.
inline Ints plainPath(std::vector<Frame>& run, const PTPARAM& p) {
    const double sign = p.pfType == PF_AMDF ? 1 : -1;
    const auto isBetter = [&](double a, double b) { return sign * a < sign * b; };
    const Frame none;
    for (size_t i = 0; i < run.size(); ++i) {
        const Frame& before = i > 0 ? run[i - 1] : none;
        for (PPC& candidate : run[i]) {
            candidate.prevIndex = -1;
            double best = -0.0; // changes no sum
            for (int k = 0; k < lengthOf(before); ++k) {
                const PPC& prev = before[size_t(k)];
                const double value = narrowed(prev.totalDist + sign * cost(prev, candidate, p));
                if (k > 0 && !isBetter(value, best)) continue;
                best = value;
                candidate.prevIndex = k;
            }
            candidate.totalDist = best + static_cast<double>(p.pfWeight) * candidate.pfValue;
        }
    }
    int chosen = run.back().empty() ? -1 : 0;
    double best = 0.0;
    for (int j = 0; j < lengthOf(run.back()); ++j) {
        const double total = run.back()[size_t(j)].totalDist;
        if (j > 0 && !isBetter(total, best)) continue;
        best = narrowed(total);
        chosen = j;
    }
    Ints lags(run.size(), -1);
    for (size_t i = run.size(); i-- > 0 && chosen >= 0; chosen = run[i][size_t(chosen)].prevIndex)
        lags[i] = run[i][size_t(chosen)].index;
    return lags;
}
