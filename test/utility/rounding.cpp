#include "utility/utility.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

namespace {

TEST(Rounding, HalvesGoAwayFromZeroAndExtremesSaturate) {
    const struct {
        double x;
        int rounded;
    } cases[] = {{2.5, 3},
                 {-2.5, -3},
                 {0.0, 0},
                 {0.5, 1},
                 {-0.5, -1},
                 {-0.4, 0},
                 {2147483646.5, INT_MAX},
                 {3e9, INT_MAX},
                 {-3e9, INT_MIN},
                 {INFINITY, INT_MAX},
                 {NAN, 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(myRound(c.x), c.rounded) << c.x;
        EXPECT_EQ(myRound(static_cast<float>(c.x)), c.rounded) << c.x;
    }
    EXPECT_EQ(myRound(0.49999997F), 0) << "the half is added in double";
}

TEST(Rounding, IntDivIsNearestForEveryDivisor) {
    const struct {
        int a, b, quotient;
    } cases[] = {{7, 2, 4},
                 {-7, 2, -4},
                 {5, 4, 1},
                 {6, 4, 2},
                 {0, 5, 0},
                 {7, -2, -3},
                 {7, 0, 0},
                 {INT_MIN, -1, INT_MAX},
                 {INT_MAX, INT_MAX, 1},
                 {INT_MIN, INT_MAX, -1}};
    for (const auto& c : cases) EXPECT_EQ(intDiv(c.a, c.b), c.quotient) << c.a << " / " << c.b;
}

} // namespace
