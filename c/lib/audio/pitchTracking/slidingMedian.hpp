// The medians of all spans of a vector, one after the other.
//
// Short spans have theirs found each on its own. Of long ones, values enter and leave a count of each
// different value, kept as a tree of partial sums in which the one at a given rank is found by descent
// (P. M. Fenwick, "A new data structure for cumulative frequency tables", Software: Practice and Experience
// 24(3), 1994).
#pragma once

#include "utility/vector/median.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <concepts>
#include <cstddef>
#include <vector>

namespace wavepitch::pitchTracking {

template <typename T>
class SlidingMedian {
public:
    /// @param values  outlives this.
    /// @param length  values in a span, from 1 to values.size().
    SlidingMedian(const std::vector<T>& itsValues, int itsLength)
        : values(itsValues), length(itsLength), scratch(static_cast<std::size_t>(length)) {
        constexpr int longSpan = 100;
        if (length < longSpan) return;
        sorted = values;
        std::erase_if(sorted, isAmbiguous);
        std::sort(sorted.begin(), sorted.end());
        sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
        count.resize(sorted.size() + 1);
        for (int i = 0; i + 1 < length; ++i) add(values[static_cast<std::size_t>(i)], 1);
    }

    /// The median of the next span; from the first one on, as often as there are spans.
    T next() {
        const auto first = values.begin() + begin++;
        if (sorted.empty()) return ofSpan(first);
        add(first[length - 1], 1);
        const T median = ambiguous > 0 ? ofSpan(first) : ofCounted();
        add(first[0], -1);
        return median;
    }

private:
    /// Whether equal or unordered values can differ in their bits: then it matters which one is found.
    static bool isAmbiguous(T value) {
        if constexpr (std::floating_point<T>)
            return std::isnan(value) || (value == T{} && std::signbit(value));
        else
            return false;
    }

    T ofSpan(typename std::vector<T>::const_iterator first) {
        std::copy(first, first + length, scratch.begin());
        return vecMedianInPlace(scratch.data(), length);
    }

    T ofCounted() const {
        T middle[] = {atRank((length - 1) / 2), atRank(length / 2)};
        return vecMedianInPlace(middle, 2 - length % 2);
    }

    void add(T value, int change) {
        if (isAmbiguous(value)) {
            ambiguous += change;
            return;
        }
        const auto place = std::lower_bound(sorted.begin(), sorted.end(), value) - sorted.begin();
        for (auto i = static_cast<std::size_t>(place) + 1; i < count.size(); i += i & (~i + 1))
            count[i] += change;
    }

    /// The value with as many counted ones below it in order.
    T atRank(int rank) const {
        std::size_t place = 0;
        for (std::size_t leap = std::bit_floor(count.size()); leap > 0; leap /= 2)
            if (place + leap < count.size() && count[place + leap] <= rank) {
                place += leap;
                rank -= count[place];
            }
        return sorted[place];
    }

    const std::vector<T>& values;
    int length;
    int begin = 0;
    int ambiguous = 0; // in the span
    std::vector<T> scratch;
    std::vector<T> sorted; // the different values that are not ambiguous; none where spans are short
    std::vector<int> count;
};

} // namespace wavepitch::pitchTracking
