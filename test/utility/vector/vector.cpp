#include "support/utilityTest.hpp"

#include <numeric>

namespace {

TEST(Median, ByCountingTakesTheBinThatReachesTheMiddle) {
    Ints bins(4, 9);
    const auto median = [&](const Ints& vec) {
        return vecMedianByCounting(vec.data(), lengthOf(vec), bins.data(), 4);
    };
    EXPECT_EQ(median({2, 0, 2}), 2);
    EXPECT_EQ(median({2, 1}), 1);
    EXPECT_EQ(median({0, 1, 0, 1}), 1);
    EXPECT_EQ(median({}), 0);
    const ConsoleCapture console;
    EXPECT_EQ(median({4, -4, 1}), 1);
    EXPECT_EQ(text(bins), "1 1 0 1");
    EXPECT_EQ(console.text(),
              "Out of bound!\nvec[0]=4, histVecLen=4\nOut of bound!\nvec[1]=-4, histVecLen=4\n");
}

TEST(QuickSort, SortsTheRangeAndMovesTheIndexAlong) {
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp)
    for (unsigned range = 1; range < 300; ++range) {
        const Doubles vec = randomDoubles(random, 2, 60, range);
        Doubles expected = vec;
        std::sort(expected.begin() + 1, expected.end() - 1);
        Doubles sorted = vec;
        Ints index(vec.begin(), vec.end());
        quickSort(sorted.data(), 1, lengthOf(vec) - 2, index.data());
        EXPECT_EQ(sorted, expected);
        EXPECT_EQ(text(index), text(expected));
    }
    int ties[] = {2, 1, 2, 3, 1, 2, 2, 1};
    Ints index{0, 1, 2, 3, 4, 5, 6, 7};
    quickSort(ties, 0, 7, index.data());
    EXPECT_EQ(text(index), "7 4 1 5 6 0 2 3"); // the exchanges decide the order of ties
}

TEST(RangeSearch, IntervalsBeginAtTheirBoundary) {
    const int table[] = {10, 20, 30};
    for (int value = 0; value < 40; ++value) {
        EXPECT_EQ(tableLookupByRangeSearch(table, 3, value, 7, 0), 7 + value / 10) << value;
        EXPECT_EQ(tableLookupByRangeSearch(table, 3, value, 7, 1), 10 - value / 10) << value;
    }
    EXPECT_EQ(tableLookupByRangeSearch(nullptr, -1, 99, INT_MAX, 0), INT_MAX);
    const double equal[] = {7, 7, 7, 7};
    EXPECT_EQ(rangeSearchBinSub(7, equal, 0, 3), 2); // one past the first one met
    EXPECT_EQ(rangeSearchBinSub(notANumber, equal, 1, 2), 3);
}

TEST(DirectMapping, InterpolatesAndStaysInsideTheTable) {
    const double table[] = {10, 20, 40, notANumber};
    const std::pair<double, double> cases[] = {{0, 10}, {2, 15}, {4, 30}, {9, 40}};
    for (const auto& [x, value] : cases)
        EXPECT_EQ(tableLookupByDirectMapping(table, 3, x, 1, 5, 2), value) << x;
    EXPECT_EQ(tableLookupByDirectMapping(table, 1, notANumber, 1, 5, 2), 10);
    const double last = std::nextafter(2, 0); // divided by the step, past the last interval
    EXPECT_NEAR(tableLookupByDirectMapping(table, 3, last, 0.6, 2, 0.7), 40, 1e-9);
}

TEST(Resample, ALongRampStaysARamp) {
    Doubles in(80000);
    std::iota(in.begin(), in.end(), 0);
    Doubles out(40001, 9);
    vecResample(in.data(), 80000, out.data(), 40001);
    for (size_t i = 0; i < 40001; ++i) ASSERT_NEAR(out[i], double(i) * 79999 / 40000, 1e-9) << i;
}

TEST(Resample, IntWeightsAreRoundedAndValuesTruncated) {
    const auto resampled = [](const Ints& in, int outLen) {
        Ints out(4, 9);
        vecResampleInt(in.data(), lengthOf(in), out.data(), outLen);
        return text(out);
    };
    EXPECT_EQ(resampled({0, -300}, 4), "0 -100 -199 -300"); // weights 43 / 128 and 85 / 128
    EXPECT_EQ(resampled({INT_MIN, INT_MAX}, 4), "-2147483648 -704643072 704643071 2147483647");
    EXPECT_EQ(resampled({5}, 3), "5 5 5 9");
    EXPECT_EQ(resampled({}, 1), "0 9 9 9");
    EXPECT_EQ(resampled({1, 2}, 1), "2 9 9 9");
}

TEST(VectorOperations, RoundSaturateFillAndEncode) {
    Ints rounded(3);
    double2intVec(Doubles{-2.5, 1e300, 4}.data(), 3, rounded.data());
    EXPECT_EQ(text(rounded), "-3 2147483647 4");
    Doubles vec(3);
    int2doubleVec(Ints{-3, 0, 4}.data(), 3, vec.data());
    EXPECT_EQ(text(vec), "-3 0 4");
    replaceZeroWithPrevOne(vec.data(), 3);
    EXPECT_EQ(text(vec), "-3 -3 4");
    vec[0] = 0;
    EXPECT_EQ(fatalMessage([&] { replaceZeroWithPrevOne(vec.data(), 3); }),
              "Wrong vector format" + inUtility);
    EXPECT_NEAR(gaussianLog(1, 3, 4), -2.11208571376462, 1e-14);
    char buffer[] = "aaaaaaaa";
    encodeXor(buffer, 7, "\x01\x02\x03", 3);
    EXPECT_STREQ(buffer, "`cb`cb`a");
}

} // namespace
