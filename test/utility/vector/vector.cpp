#include "support/utilityTest.hpp"

namespace {

double medianOf(const Doubles& vec) {
    return vecMedian(vec.data(), lengthOf(vec));
}

TEST(Median, IsTheMiddleOfTheSortedValues) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    for (unsigned round = 0; round < 5000; ++round) {
        Doubles vec = randomDoubles(random, 1, round % 50 == 0 ? 1500 : 40, 1 + round % 37);
        Doubles sorted = vec;
        std::sort(sorted.begin(), sorted.end());
        const double median = (sorted[(vec.size() - 1) / 2] + sorted[vec.size() / 2]) / 2;
        ASSERT_EQ(medianOf(vec), median) << text(vec);
        std::replace(vec.begin(), vec.end(), 0.0, -0.0);
        ASSERT_EQ(medianOf(vec), median) << text(vec);
    }
    EXPECT_EQ(vecMedian(std::vector<short>{-3, 0}.data(), 2), -1) << "truncated";
    EXPECT_EQ(medianOf({}), 0);
}

TEST(Median, NotANumberStandsWhereTheDefiningSelectionPutsIt) {
    EXPECT_EQ(medianOf({notANumber, 1, 2}), 1);
    EXPECT_TRUE(std::isnan(medianOf({4, 4, notANumber, 1, 4, 8})));
    EXPECT_EQ(medianOf({notANumber, 5, notANumber, 3, 2, 1, 0, notANumber}), 2.5);
    EXPECT_FALSE(std::signbit(medianOf({-6, -5, -4, -3, -2, -1, 0, -0.0, -0.0, -0.0, 4, 5, 6})));
}

TEST(Median, ByCountingTakesTheBinThatReachesTheMiddle) {
    const std::pair<Ints, int> cases[] = {
        {{2, 0, 2}, 2}, {{2, 1}, 1}, {{0, 1, 0, 1}, 1}, {{3, 0, 0, 3}, 3}, {{}, 0}};
    Ints bins(4, 9);
    for (const auto& [vec, median] : cases)
        EXPECT_EQ(vecMedianByCounting(vec.data(), lengthOf(vec), bins.data(), 4), median) << text(vec);
    const ConsoleCapture console;
    EXPECT_EQ(vecMedianByCounting(Ints{4, -4, 1}.data(), 3, bins.data(), 4), 1);
    EXPECT_EQ(text(bins), "1 1 0 1");
    EXPECT_EQ(console.text(),
              "Out of bound!\nvec[0]=4, histVecLen=4\nOut of bound!\nvec[1]=-4, histVecLen=4\n");
}

TEST(QuickSort, SortsTheRangeAndMovesTheIndexAlong) {
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp)
    for (unsigned round = 0; round < 300; ++round) {
        Doubles vec = randomDoubles(random, 2, 60, 1 + round % 60);
        Doubles sorted = vec;
        std::sort(sorted.begin() + 1, sorted.end() - 1);
        Ints index(vec.begin(), vec.end());
        quickSort(vec.data(), 1, lengthOf(vec) - 2, index.data());
        EXPECT_EQ(vec, sorted);
        EXPECT_EQ(text(index), text(sorted));
    }
    int ties[] = {2, 1, 2, 3, 1, 2, 2, 1};
    Ints index{0, 1, 2, 3, 4, 5, 6, 7};
    quickSort(ties, 0, 7, index.data());
    EXPECT_EQ(text(index), "7 4 1 5 6 0 2 3") << "the exchanges decide the order of ties";
}

TEST(SortFunctions, OrderBySignOfTheDifference) {
    const double doubles[] = {0.1, 0.2, notANumber};
    EXPECT_EQ(sortFunction(doubles, doubles + 1), -1);
    EXPECT_EQ(sortFunction(doubles, doubles), 0);
    EXPECT_EQ(sortFunction(doubles, doubles + 2), 1);
    const float floats[] = {0.1F, 0.2F};
    EXPECT_EQ(floatSortFunction(floats, floats + 1), -1);
    const int ints[] = {INT_MIN, INT_MAX};
    EXPECT_EQ(intSortFunction(ints, ints + 1), -1);
    EXPECT_EQ(intSortFunction(ints + 1, ints), 1);
}

TEST(RangeSearch, IntervalsBeginAtTheirBoundary) {
    const int table[] = {10, 20, 30};
    const std::pair<int, int> cases[] = {{9, 0}, {10, 1}, {19, 1}, {20, 2}, {30, 3}, {99, 3}};
    for (const auto& [value, interval] : cases) {
        EXPECT_EQ(tableLookupByRangeSearch(table, 3, value, 7, 0), interval + 7) << value;
        EXPECT_EQ(tableLookupByRangeSearch(table, 3, value, 7, -1), 10 - interval) << value;
    }
    EXPECT_EQ(tableLookupByRangeSearch(nullptr, INT_MIN, 99, INT_MAX, 1), INT_MAX);
    const double equal[] = {7, 7, 7, 7};
    EXPECT_EQ(rangeSearchBinSub(7, equal, 0, 3), 2) << "the first one met";
    EXPECT_EQ(rangeSearchBinSub(notANumber, equal, 1, 2), 3);
}

TEST(DirectMapping, InterpolatesAndStaysInsideTheTable) {
    const double table[] = {10, 20, 40, notANumber};
    const std::pair<double, double> cases[] = {{0, 10}, {1, 10}, {2, 15}, {4, 30}, {5, 40}, {9, 40}};
    for (const auto& [x, value] : cases)
        EXPECT_EQ(tableLookupByDirectMapping(table, 3, x, 1, 5, 2), value) << x;
    EXPECT_EQ(tableLookupByDirectMapping(table, 1, notANumber, 1, 5, 2), 10);
    EXPECT_EQ(tableLookupByDirectMapping(nullptr, 0, 1, 1, 5, 2), 0);
    const double last = std::nextafter(2, 0); // divided by the step, past the last interval
    EXPECT_NEAR(tableLookupByDirectMapping(table, 3, last, 0.6, 2, 0.7), 40, 1e-9);
}

TEST(Resample, ARampStaysARamp) {
    for (const int inLen : {2, 3, 70, 90000})
        for (const int outLen : {2, 3, 64, 80000}) {
            Doubles in;
            for (int i = 0; i < inLen; ++i) in.push_back(i);
            Doubles out(in);
            out.resize(static_cast<size_t>(outLen));
            vecResample(in.data(), inLen, out.data(), outLen);
            double expected = 0;
            for (const double value : out) {
                ASSERT_NEAR(value, expected / (outLen - 1), 1e-9) << inLen << " to " << outLen;
                expected += inLen - 1;
            }
        }
}

TEST(Resample, IntWeightsAreRoundedAndValuesTruncated) {
    const auto resampled = [](const Ints& in, int outLen) {
        Ints out(4, 9);
        vecResampleInt(in.data(), lengthOf(in), out.data(), outLen);
        return text(out);
    };
    EXPECT_EQ(resampled({0, -300}, 4), "0 -100 -199 -300") << "weights 43 / 128 and 85 / 128";
    EXPECT_EQ(resampled({INT_MIN, INT_MAX}, 4), "-2147483648 -704643072 704643071 2147483647");
    EXPECT_EQ(resampled({5}, 3), "5 5 5 9");
    EXPECT_EQ(resampled({}, 3), "0 0 0 9");
    EXPECT_EQ(resampled({1, 2}, 1), "2 9 9 9");
    EXPECT_EQ(resampled({1, 2}, 0), "9 9 9 9");
}

TEST(VectorOperations, Examples) {
    Ints rounded(3);
    double2intVec(Doubles{-2.5, 1e300, 4.2}.data(), 3, rounded.data());
    EXPECT_EQ(text(rounded), "-3 2147483647 4");
    Doubles vec(3);
    int2doubleVec(Ints{-3, 7, 4}.data(), 3, vec.data());
    EXPECT_EQ(text(vec), "-3 7 4");
    vec = {1, 0, -0.0};
    replaceZeroWithPrevOne(vec.data(), 3);
    EXPECT_EQ(text(vec), "1 1 1");
    EXPECT_EQ(fatalMessage([] { replaceZeroWithPrevOne(Doubles{0}.data(), 1); }),
              "Wrong vector format" + inUtility);
    EXPECT_NEAR(gaussianLog(1, 3, 4), std::log(std::exp(-0.5) / std::sqrt(8 * std::acos(-1.0))), 1e-14);
    char buffer[] = "aaaaaaaa";
    encodeXor(buffer, 7, "\x01\x02\x03", 3);
    EXPECT_STREQ(buffer, "`cb`cb`a");
}

} // namespace
