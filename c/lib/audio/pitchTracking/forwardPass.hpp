// The forward pass of the path search: the best total and the best predecessor of each candidate, frame after
// frame. What it computes is described with the whole search (path.cpp).
#pragma once

#include "audio/pitchTracking/kernel/pathStep.hpp"
#include "audio/pitchTracking/param.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace wavepitch::pitchTracking {

/// Where a lag stands on the scale that distances are measured on: whole numbers, held as double.
class Scale {
public:
    explicit Scale(const PTPARAM& ptParam);

    double operator()(int lag) const {
        if (method == 1) return lag;
        const bool inside = lag >= 0 && static_cast<std::size_t>(lag) < semitoneTenths.size();
        return inside ? semitoneTenths[static_cast<std::size_t>(lag)] : 0.0;
    }

private:
    int method;
    std::vector<double> semitoneTenths;
};

/// The costs of transitions between lags below pfLen, by distance.
class CostTable {
public:
    CostTable(int pfLen, const Transition& transition);

    /// The cost of a distance; those of the distances around it lie around it.
    const double* at(std::ptrdiff_t distance) const {
        return cost.data() + static_cast<std::ptrdiff_t>(reach) + distance;
    }

private:
    std::size_t reach;
    std::vector<double> cost;
};

class ForwardPass {
public:
    /// @param ptParam  read: fs, pfType, pfLen, dpMethod, dpPosDiffOrder, pfWeight, indexDiffWeight; it must
    ///                 outlive the pass.
    explicit ForwardPass(const PTPARAM& ptParam);

    /// Goes on to the next frame. The first one, and one behind a frame without candidates, has no
    /// predecessors.
    ///
    /// @param lag    the candidates, count of them: their lags
    /// @param value  and their values of the frame's pitch function.
    void advance(const int* lag, const double* value, std::size_t count);

    /// The candidates' totals and the numbers of their best predecessors (-1 for none) in the frame before.
    const std::vector<double>& totals() const { return current.total; }
    const int* predecessors() const { return prevIndex.data(); }
    std::size_t count() const { return current.length; }

private:
    /// Valid up to a whole block of the kernel.
    struct Column {
        std::size_t length = 0;
        std::vector<double> total;
        std::vector<double> position;
        bool areConsecutive = false; // the positions

        PathColumn view() const { return {total.data(), position.data(), length}; }
    };

    void setPositions(const int* lag, std::size_t count);
    void findPredecessors();
    const double* tabledCost();
    bool areConsecutiveLags(const Column& column) const;

    const PTPARAM& ptParam;
    Scale scale;
    Transition transition;
    void (*bestPredecessors)(const PathStep&, float*, int*);
    std::optional<CostTable> table; // once it is needed
    Column previous;
    Column current;
    std::vector<float> best;
    std::vector<int> prevIndex;
};

} // namespace wavepitch::pitchTracking
