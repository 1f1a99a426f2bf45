// Places side by side, each in a lane of its own.
//
// Absolute differences: of the means d of eight segments, the least sum of |d - m| is that of the four
// largest less that of the four smallest. Two sorted fours a and b tell it without being merged: the sum of
// |a[i] - b[3 - i]|. The first and the second half of the segments make an eight each.
#include "utility/scaling/kernel/placeBound.hpp"

#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

using wavepitch::utility::segmentNum;
using wavepitch::utility::Segments;

template <std::size_t bytes>
using Values = Lanes<double, bytes>;

template <std::size_t bytes>
[[gnu::always_inline]] inline void order(Values<bytes>& a, Values<bytes>& b) {
    const Values<bytes> lower = a < b ? a : b;
    b = a < b ? b : a;
    a = lower;
}

template <std::size_t bytes>
[[gnu::always_inline]] inline void sortFour(Values<bytes>* x) {
    order<bytes>(x[0], x[1]);
    order<bytes>(x[2], x[3]);
    order<bytes>(x[0], x[2]);
    order<bytes>(x[1], x[3]);
    order<bytes>(x[1], x[2]);
}

template <std::size_t bytes>
[[gnu::always_inline]] inline Values<bytes> distance(Values<bytes> a, Values<bytes> b) {
    return a < b ? b - a : a - b;
}

template <std::size_t bytes>
[[gnu::always_inline]] inline Values<bytes> leastAbsolute(Values<bytes>* x, double weight) {
    Values<bytes> sum{};
#pragma GCC unroll 2
    for (std::size_t eight = 0; eight < 2; ++eight) {
        Values<bytes>* const a = x + 8 * eight;
        Values<bytes>* const b = a + 4;
        sortFour<bytes>(a);
        sortFour<bytes>(b);
        sum += (distance<bytes>(a[0], b[3]) + distance<bytes>(a[1], b[2])) +
               (distance<bytes>(a[2], b[1]) + distance<bytes>(a[3], b[0]));
    }
    return sum * weight;
}

template <std::size_t bytes>
[[gnu::always_inline]] inline Values<bytes> leastSquared(const Values<bytes>* x, const double* weight) {
    Values<bytes> mean{};
#pragma GCC unroll 16
    for (std::size_t j = 0; j < segmentNum; ++j) mean += x[j] * weight[j];
    Values<bytes> sum{};
#pragma GCC unroll 16
    for (std::size_t j = 0; j < segmentNum; ++j) sum += (x[j] - mean) * (x[j] - mean) * weight[j];
    return sum;
}

/// The bounds of as many places as there are lanes.
template <std::size_t bytes>
[[gnu::always_inline]] inline void boundPlaces(const Segments& version, int distanceType, const double* sum,
                                               double* bound) {
    Values<bytes> difference[segmentNum];
    Values<bytes> before = load<double, bytes>(sum);
#pragma GCC unroll 16
    for (std::size_t j = 0; j < segmentNum; ++j) {
        const auto behind = load<double, bytes>(sum + version.edge[j]);
        difference[j] = version.mean[j] - (behind - before) * version.perValue[j];
        before = behind;
    }
    store(distanceType == 1 ? leastAbsolute<bytes>(difference, version.leastWeight)
                            : leastSquared<bytes>(difference, version.weight),
          bound);
}

} // namespace

template <wavepitch::InstructionSet set>
void wavepitch::utility::placeBoundsOf(const Segments& version, int distanceType, const double* sum,
                                       std::size_t placeNum, double* bound) {
    constexpr std::size_t lanes = ownBytes / sizeof(double);
    std::size_t place = 0;
    for (; place + lanes <= placeNum; place += lanes)
        boundPlaces<ownBytes>(version, distanceType, sum + place, bound + place);
    for (; place < placeNum; ++place)
        boundPlaces<sizeof(double)>(version, distanceType, sum + place, bound + place);
}

template void wavepitch::utility::placeBoundsOf<ownSet>(const Segments&, int, const double*, std::size_t,
                                                        double*);
