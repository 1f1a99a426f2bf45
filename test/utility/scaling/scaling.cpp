#include "support/utilityTest.hpp"

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

struct Scaling {
    Doubles query, reference;
    double lower, upper;
    int resolution, type;
    double cutoff;

    Match operator()(bool prepared) const {
        Match m;
        Doubles work(2 * reference.size());
        const int n = lengthOf(reference);
        SCALEDVECSET set;
        linearScaledVecCreate(query.data(), lengthOf(query), lower, upper, resolution, &set);
        m.best = prepared ? linearScaling2(&set, reference.data(), n, type, m.distance.data(), m.shift.data(),
                                           nullptr, work.data(), m.at, cutoff)
                          : linearScaling(query.data(), lengthOf(query), reference.data(), n, lower, upper,
                                          resolution, type, m.distance.data(), m.shift.data(), work.data(),
                                          work.data() + n, m.at, cutoff);
        linearScaledVecFree(&set);
        return m;
    }

    /// Each scale for itself, summed to its end.
    Match oneByOne(bool prepared) const {
        Match m;
        for (size_t i = 0; i < static_cast<size_t>(resolution); ++i) {
            const double ratio = lower + static_cast<double>(i) * (upper - lower) / (resolution - 1);
            const int n = prepared ? truncateToInt(std::min(ratio, upper) * lengthOf(query))
                                   : myRound(ratio * lengthOf(query));
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
        for (const bool prepared : {false, true}) EXPECT_EQ(task(prepared), task.oneByOne(prepared)) << round;
    }
}

TEST(LinearScaling, OutsideItsLimitsNothingIsCompared) {
    for (const bool prepared : {false, true}) {
        EXPECT_EQ((Scaling{{1, 2}, {1, 2}, notANumber, 2, 3, 99, 1}(prepared)), Match());
        EXPECT_EQ((Scaling{{}, {1, 2}, 1, 2, -1, 99, 1}(prepared)), Match());
        EXPECT_EQ((Scaling{{1, 2}, {1, 2}, 1, 2, 1, 1, 1}(prepared)).best, 0) << "one scale: the lower ratio";
    }
}

TEST(LinearScaling, WithoutShiftAndOfUnknownTypes) {
    const double query[] = {1, 2, 3}, reference[] = {11, 12, 13, 20};
    double d[4] = {}, scaled[4];
    int at = 0;
    const auto plain = [&](int type) {
        return linearScaling(query, 3, reference, 4, 1, 1.5, 2, type, d, scaled, at);
    };
    EXPECT_EQ(plain(1), 10);
    EXPECT_EQ(plain(2), 100);
    EXPECT_EXIT((std::swap(stdout, stderr), plain(3)), testing::ExitedWithCode(1), "^Unknown method!\n$");
    const std::string message = "Unknown distance type" + inUtility;
    EXPECT_EQ(fatalMessage([] { slid({1}, {1, 2}, 3); }), message);
    EXPECT_EQ(fatalMessage([&] { linearScaling(d, 2, d, 2, 1, 1, 2, 3, d, d, d, d, at, 1.0); }), message);
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
