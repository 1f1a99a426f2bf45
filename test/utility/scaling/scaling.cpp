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
    Match oneByOne(Variant variant) const {
        Match m;
        for (size_t i = 0; i < static_cast<size_t>(resolution); ++i) {
            const double ratio = lower + static_cast<double>(i) * (upper - lower) / (resolution - 1);
            const int n = variant == shifting ? myRound(ratio * lengthOf(query))
                                              : truncateToInt(std::min(ratio, upper) * lengthOf(query));
            if (n > lengthOf(reference)) break;
            Doubles scaled(static_cast<size_t>(n));
            vecResample(query.data(), lengthOf(query), scaled.data(), n);
            const Match one = slid(scaled, Doubles(reference.begin(), reference.begin() + n), type);
            m.distance[i] = (one.best > cutoff * n ? noMatchDistance : one.best) / n;
            m.shift[i] = one.shift[0];
            m.best = std::min(m.best, m.distance[i]);
        }
        m.at = static_cast<int>(std::ranges::min_element(m.distance) - m.distance.begin());
        return m;
    }
};

TEST(LinearScaling, EqualsEachScaleComparedForItself) {
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 20000; ++round) {
        // Rounding lifts some last ratios above this limit, over a whole length.
        const double upper = std::nextafter(0.1 * static_cast<double>(4 + random() % 30), 0.0);
        const Doubles query = randomDoubles(random, 4, 30, 20);
        const Scaling task{query,         randomDoubles(random, 1, 60, 20), 0.3, upper, 2 + round % 9,
                           1 + round % 2, round % 4 < 2 ? HUGE_VAL : 9.0};
        for (const Variant variant : {shifting, prepared})
            EXPECT_EQ(task(variant), task.oneByOne(variant)) << round;
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

TEST(LinearScaling, UnknownDistanceTypes) {
    double d[] = {1, 2};
    int at = 0;
    const char* message = "Unknown distance type (line N of ../../../../c/lib/utility/utility)";
    EXPECT_EQ(fatalMessage([] { slid({1}, {1, 2}, 3); }), message);
    EXPECT_EQ(fatalMessage([&] { linearScaling(d, 2, d, 2, 1, 1, 2, 3, d, d, d, d, at, 1.0); }), message);
    EXPECT_EXIT((std::swap(stdout, stderr), linearScaling(d, 2, d, 2, 1, 1, 2, 3, d, d, at)),
                testing::ExitedWithCode(1), "^Unknown method!\n$");
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
