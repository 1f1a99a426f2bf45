#include "utility/utility.hpp"

#include "support/console.hpp"
#include "support/vectors.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

struct Match {
    double best = noMatchDistance;
    int at = 0;
    Doubles distance = Doubles(12, noMatchDistance);
    Doubles shift = Doubles(12, -7.0);
    bool operator==(const Match&) const = default;
};

Match slid(const Doubles& a, const Doubles& b, int type) {
    Match m;
    m.best = lrShiftDist(a.data(), lengthOf(a), b.data(), lengthOf(b), type, m.shift[0], m.at);
    return m;
}

enum Variant { plain, shifting, prepared };

struct Scaling {
    Doubles query, reference;
    double lower, upper;
    int resolution, type;
    double cutoff;

    Match operator()(Variant variant) const {
        Match m;
        Doubles work(2 * reference.size());
        const int n = lengthOf(reference);
        const auto scaled = [&](auto... rest) {
            return linearScaling(query.data(), lengthOf(query), reference.data(), n, lower, upper, resolution,
                                 type, m.distance.data(), rest...);
        };
        if (variant == plain) m.best = scaled(work.data(), std::ref(m.at));
        if (variant == shifting)
            m.best = scaled(m.shift.data(), work.data(), work.data() + n, std::ref(m.at), cutoff);
        if (variant != prepared) return m;
        SCALEDVECSET set;
        linearScaledVecCreate(query.data(), lengthOf(query), lower, upper, resolution, &set);
        m.best = linearScaling2(&set, reference.data(), n, type, m.distance.data(), m.shift.data(), nullptr,
                                work.data(), m.at, cutoff);
        linearScaledVecFree(&set);
        return m;
    }

    /// Each scale for itself, summed to its end.
    Match oneByOne(int (*whole)(double)) const {
        Match m;
        for (int i = 0; i < resolution; ++i) {
            const double ratio = lower + i * (upper - lower) / (resolution - 1);
            Doubles scaled(static_cast<size_t>(whole(ratio * lengthOf(query))));
            const int n = lengthOf(scaled);
            if (n > lengthOf(reference)) break;
            vecResample(query.data(), lengthOf(query), scaled.data(), n);
            const Match one = slid(scaled, Doubles(reference.begin(), reference.begin() + n), type);
            const auto at = static_cast<size_t>(i);
            m.distance[at] = (one.best > cutoff * n ? noMatchDistance : one.best) / n;
            m.shift[at] = one.shift[0];
            if (m.distance[at] < m.best) m.at = i;
            m.best = std::min(m.best, m.distance[at]);
        }
        return m;
    }
};

TEST(LinearScaling, EqualsEachScaleComparedForItself) {
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 2000; ++round) {
        const double lower = 0.5 + static_cast<double>(random() % 100) / 200.0;
        const double cutoff = round % 4 < 2 ? HUGE_VAL : 9.0;
        const Scaling task{randomDoubles(random, 2, 30, 20),
                           randomDoubles(random, 1, 60, 20),
                           lower,
                           2.3001 - lower,
                           2 + round % 9,
                           1 + round % 2,
                           cutoff};
        EXPECT_EQ(task(shifting), task.oneByOne(myRound)) << round;
        EXPECT_EQ(task(prepared), task.oneByOne(truncateToInt)) << round;
    }
}

TEST(LinearScaling, WithoutShiftAndOutsideItsLimits) {
    EXPECT_EQ((Scaling{{1, 2, 3}, {11, 12, 13, 20}, 1, 2, 2, 1, 0}(plain)).best, 10);
    EXPECT_EQ((Scaling{{1, 2, 3}, {11, 12, 13, 20}, 1, 2, 2, 2, 0}(plain)).best, 100);
    for (const Variant variant : {plain, shifting, prepared}) {
        EXPECT_EQ((Scaling{{1, 2}, {1, 2}, notANumber, 2, 3, 99, 1}(variant)), Match());
        EXPECT_EQ((Scaling{{}, {1, 2}, 1, 2, -1, 99, 1}(variant)), Match());
        EXPECT_EQ((Scaling{{1, 2}, {1, 2}, 1, 2, 1, 1, 1}(variant)).best, 0) << "one scale: the lower ratio";
    }
}

TEST(LinearScaling, RowsStayInsideTheirStride) {
    for (int i = 0; i < 2000; ++i) { // rounding lifts some last ratios above upper, over a whole length
        SCALEDVECSET set;
        linearScaledVecCreate(Doubles(100).data(), 100, 0.3, std::nextafter(i % 40 * 0.1, 0.0), i / 40, &set);
        for (int scale = 0; scale < i / 40; ++scale) EXPECT_LE(set.scaledVecLen[scale], set.vecMaxLen) << i;
        linearScaledVecFree(&set);
    }
}

TEST(LinearScaling, UnknownDistanceTypes) {
    double d[2] = {1, 2};
    int at = 0;
    const char* message = "Unknown distance type (line N of ../../../../c/lib/utility/utility)";
    EXPECT_EQ(fatalMessage([] { slid({1}, {1, 2}, 3); }), message);
    EXPECT_EQ(fatalMessage([&] { linearScaling(d, 2, d, 2, 1, 1, 2, 3, d, d, d, d, at, 1.0); }), message);
    standIn::setConsole([](std::string_view text) { std::fputs(std::string(text).c_str(), stderr); });
    EXPECT_EXIT(linearScaling(d, 2, d, 2, 1, 1, 2, 3, d, d, at), testing::ExitedWithCode(1),
                "^Unknown method!\n$");
    standIn::setConsole(nullptr);
}

TEST(ShiftDistance, FindsAQueryAtItsOwnOffset) {
    std::mt19937 random(5); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 500; ++round) {
        const Doubles reference = randomDoubles(random, 25, 40, 50);
        const int at = static_cast<int>(random() % 20);
        Doubles query(reference.begin() + at, reference.begin() + at + 5);
        for (double& x : query) x += 8;
        const Match m = slid(reference, query, 1 + round % 2);
        EXPECT_TRUE(m.at == at && m.best == 0 && m.shift[0] == 8) << round << ' ' << m.at << ' ' << at;
    }
    EXPECT_EQ(slid({1, 2, 6}, {0, 0, 0, 0}, 1).best, 5);
    EXPECT_EQ(slid({1, 2, 6}, {0, 0, 0, 0}, 2).best, 14);
    EXPECT_EQ(slid({1, 2, 6}, {0, 0, 0, 0}, 2).at, 0) << "the first of equals";
    EXPECT_EQ(slid({}, {1, 2}, 99).at, -1);
}

} // namespace
