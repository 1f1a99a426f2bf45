#include "support/utilityTest.hpp"

#include <unistd.h>

namespace {

enum Form { plain, shifting, prepared };

struct Result {
    double best;
    int at;
    Doubles distance = Doubles(4, -1);
    Doubles shift = Doubles(4, -1);
};

/// The query scaled by resolution ratios from 0.5 to 2 and compared with the front of 0, 4, ..., 28.
Result scaled(Form form, const Doubles& query, int resolution, int type, double cutoff) {
    const double reference[] = {0, 4, 8, 12, 16, 20, 24, 28};
    double work[8], difference[8];
    const int n = lengthOf(query);
    Result r;
    if (form == plain)
        r.best = linearScaling(query.data(), n, reference, 8, 0.5, 2, resolution, type, r.distance.data(),
                               work, r.at);
    if (form == shifting)
        r.best = linearScaling(query.data(), n, reference, 8, 0.5, 2, resolution, type, r.distance.data(),
                               r.shift.data(), work, difference, r.at, cutoff);
    if (form == prepared) {
        SCALEDVECSET set;
        linearScaledVecCreate(query.data(), n, 0.5, 2, resolution, &set);
        r.best = linearScaling2(&set, reference, 8, type, r.distance.data(), r.shift.data(), nullptr,
                                difference, r.at, cutoff);
        linearScaledVecFree(&set);
    }
    return r;
}

TEST(LinearScaling, ComparesEachScaleThatIsNotLongerThanTheReference) {
    // Lengths 2.5, 5, 7.5 and 10: rounded by the form that shifts, truncated by the others.
    const struct {
        Form form;
        int type;
        double cutoff;
        const char *distance, *shift;
    } cases[] = {{plain, 1, 0, "17 8 3.90476 2.14748e+09", "-1 -1 -1 -1"},
                 {plain, 2, 0, "578 122 36.254 2.14748e+09", "-1 -1 -1 -1"},
                 {shifting, 1, 99, "10 5.6 1.78571 2.14748e+09", "10 6 0 -1"},
                 {shifting, 2, 58, "7.15828e+08 58 11.6071 2.14748e+09", "13.3333 8 1.78571 -1"},
                 {prepared, 1, 99, "17 5.6 3.04762 2.14748e+09", "17 6 2 -1"}};
    for (const auto& [form, type, cutoff, distance, shift] : cases) {
        SCOPED_TRACE(form);
        const Result r = scaled(form, {0, 7, 14, 21, 38}, 4, type, cutoff);
        EXPECT_EQ(text(r.distance), distance);
        EXPECT_EQ(text(r.shift), shift);
        EXPECT_EQ(r.best, r.distance[2]);
        EXPECT_EQ(r.at, 2);
    }
}

TEST(LinearScaling, PassesOverWhatHasNoLengthAndTakesTheFirstOfEquals) {
    EXPECT_EQ(text(scaled(plain, {1}, 4, 1, 9).distance),
              "2.14748e+09 1 1 2");                          // a length of 0.5 is passed over
    EXPECT_EQ(scaled(plain, {0, 4, 0, 4}, 1, 1, 9).best, 0); // one scale is that of the lower ratio
    EXPECT_EQ(scaled(plain, {}, 4, 1, 9).best, noMatchDistance);
    EXPECT_EQ(scaled(plain, {1}, 0, 1, 9).best, noMatchDistance);
    EXPECT_EQ(scaled(shifting, {1}, 4, 1, 9).at, 0); // the first of equals
}

TEST(LinearScaling, OfUnknownTypesIsFatal) {
    EXPECT_EQ(fatalMessage([] { scaled(shifting, {1, 2}, 1, 3, 9); }), "Unknown distance type" + inUtility);
    const auto ends = [] {
        dup2(2, 1); // the message goes to standard output
        scaled(plain, {1, 2}, 1, 0, 9);
    };
    EXPECT_EXIT(ends(), testing::ExitedWithCode(1), "^Unknown method!\n$");
}

TEST(ScaledVecSet, HoldsEachScaleInItsRow) {
    const double query[] = {1, 2, 3, 4};
    SCALEDVECSET set;
    linearScaledVecCreate(query, 4, 0.3, 1, 4, &set);
    EXPECT_EQ(text(Ints(set.scaledVecLen, set.scaledVecLen + 4)), "1 2 3 3"); // the last ratio is below 1
    EXPECT_EQ(text(Doubles(set.scaledVec + 8, set.scaledVec + 11)), "1 2.5 4");
    linearScaledVecFree(&set);
    linearScaledVecFree(&set);
    EXPECT_EQ(set.resolution, 0);
    linearScaledVecCreate(query, 4, 1.5, 1, 2, &set);
    EXPECT_EQ(set.scaledVecLen[0], 4); // no longer than the upper ratio has it
    linearScaledVecFree(&set);
    EXPECT_EQ(fatalMessage([&] { linearScaledVecCreate(query, 4, 1, 1e10, INT_MAX, &set); }),
              "No memory for 2147483647 scales of 2147483647 values" + inUtility);
}

TEST(ShiftDistance, FindsAShiftedStretchAtItsPosition) {
    const auto found = [](const Doubles& vec1, const Doubles& vec2, int type) {
        double shift = -7;
        int at = -7;
        const double distance =
            lrShiftDist(vec1.data(), lengthOf(vec1), vec2.data(), lengthOf(vec2), type, shift, at);
        return text(Doubles{distance, shift, 1.0 * at});
    };
    const Doubles melody{9, 4, 5, 1, 4, 4, 0};
    EXPECT_EQ(found({14, 10, 13}, melody, 1), "0 9 2");
    EXPECT_EQ(found(melody, {14, 10, 13}, 2), "0 9 2"); // the shorter one slides
    EXPECT_EQ(found({3}, melody, 1), "0 -6 0");         // the first of equals
    EXPECT_EQ(found({1, 2, 6}, {0, 0, 0}, 2), "14 3 0");
    EXPECT_EQ(found({}, melody, 99), "2.14748e+09 2.14748e+09 -1");
}

} // namespace
