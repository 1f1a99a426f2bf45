#include "support/utilityTest.hpp"

#include <cstring>
#include <ctime>

namespace {

TEST(Median, IsTheMiddleOfTheSortedValuesInLinearTimeForEveryOrder) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    int bins[37];
    const std::clock_t start = std::clock();
    for (unsigned round = 0; round < 20000; ++round) {
        Doubles v = randomDoubles(random, 1, round % 50 == 0 ? 1500 : 40, 1 + round % 37);
        if (round < 4) v.resize(200000);
        for (int i = 0; i < lengthOf(v) && round < 4; ++i)
            v[static_cast<size_t>(i)] = Doubles{7.0, 1.0 * i, -1.0 * i, i % 70 - 35.0}[round];
        if (round % 2 == 1) std::replace(v.begin(), v.end(), 0.0, -0.0); // the other selection
        Ints whole(v.begin(), v.end());
        Doubles sorted = v;
        std::sort(sorted.begin(), sorted.end());
        const double upper = sorted[v.size() / 2];
        const double median = (sorted[(v.size() - 1) / 2] + upper) / 2;
        ASSERT_EQ(vecMedian(v.data(), lengthOf(v)), median) << round;
        const bool alone = v.size() % 2 == 1 || std::count(v.begin(), v.end(), upper) > 1;
        const auto counted = static_cast<int>(alone ? upper : median);
        ASSERT_TRUE(round < 4 || vecMedianByCounting(whole.data(), lengthOf(v), bins, 37) == counted)
            << round;
        ASSERT_EQ(vecMedianInPlace(whole.data(), lengthOf(v)), static_cast<int>(median)) << round;
    }
    EXPECT_LT(std::clock() - start, 4 * CLOCKS_PER_SEC);
    EXPECT_EQ(vecMedianInPlace(Ints{INT_MAX, INT_MAX - 1}.data(), 2), INT_MAX - 1);
    const ConsoleCapture console;
    EXPECT_EQ(vecMedianByCounting(Ints{9, -4, 1}.data(), 3, bins, 3), 1);
    EXPECT_EQ(console.text(),
              "Out of bound!\nvec[0]=9, histVecLen=3\nOut of bound!\nvec[1]=-4, histVecLen=3\n");
}

TEST(Median, NotANumberAndZerosStandWhereTheDefiningSelectionPutsThem) {
    const std::pair<Doubles, double> cases[] = {
        {{notANumber, 1, 2}, 1},
        {{1, notANumber, 2}, notANumber},
        {{4, 4, notANumber, 1, 4, 8}, notANumber},
        {{notANumber, 5, notANumber, 3, 2, 1, 0, notANumber}, 2.5},
        {{-6, -5, -4, -3, -2, -1, 0.0, -0.0, -0.0, -0.0, 4, 5, 6}, 0.0},
        {{}, 0}};
    for (const auto& [vec, median] : cases) {
        const double found = vecMedian(vec.data(), lengthOf(vec));
        EXPECT_EQ(std::memcmp(&found, &median, sizeof found), 0) << found << " for " << median;
    }
}

TEST(QuickSort, PermutationIsCarriedByTheIndex) {
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp)
    for (unsigned round = 0; round < 3000; ++round) {
        const Doubles input = randomDoubles(random, 1, 100, 1 + round % 60);
        Doubles vec = input;
        Ints index(vec.size());
        for (size_t i = 0; i < vec.size(); ++i) index[i] = static_cast<int>(i);
        quickSort(vec.data(), 0, lengthOf(vec) - 1, index.data());
        EXPECT_TRUE(std::is_sorted(vec.begin(), vec.end())) << round;
        for (size_t i = 0; i < vec.size(); ++i) EXPECT_EQ(vec[i], input[static_cast<size_t>(index[i])]);
    }
    int ties[] = {2, 1, 2, 3, 1, 2, 3, 1, 2, 2, 1, 3};
    Ints index{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    quickSort(ties, 0, 11, index.data());
    EXPECT_EQ(index, (Ints{4, 10, 7, 1, 8, 9, 0, 5, 2, 11, 6, 3}))
        << "the exchanges decide the order of ties";
}

TEST(SortFunctions, OrderBySignOfTheDifference) {
    const double cases[][3] = {{1, 2, -1}, {0.0, -0.0, 0}, {1, notANumber, 1}, {HUGE_VAL, HUGE_VAL, 1}};
    for (const auto& [a, b, sign] : cases) {
        const float floats[] = {static_cast<float>(a), static_cast<float>(b)};
        EXPECT_EQ(sortFunction(&a, &b), sign) << a << ' ' << b;
        EXPECT_EQ(floatSortFunction(floats, floats + 1), sign) << a << ' ' << b;
    }
    const int ends[] = {INT_MIN, INT_MAX};
    EXPECT_EQ(intSortFunction(ends, ends + 1), -1);
    EXPECT_EQ(intSortFunction(ends, ends), 0);
}

TEST(RangeSearch, IntervalsBeginAtTheirBoundary) {
    const int table[] = {10, 20, 30};
    for (int value = 5; value < 40; ++value) {
        const int interval = std::min(value / 10, 3);
        EXPECT_EQ(tableLookupByRangeSearch(table, 3, value, 7, 0), interval + 7) << value;
        EXPECT_EQ(tableLookupByRangeSearch(table, 3, value, 0, 1), 3 - interval) << value;
    }
    EXPECT_EQ(rangeSearchBinSub(notANumber, Doubles{1, 2, 3}.data(), 0, 2), 3);
    EXPECT_EQ(tableLookupByRangeSearch(nullptr, INT_MIN, 99, INT_MAX, 1), INT_MAX);
}

TEST(DirectMapping, InterpolatesAndStaysInsideTheTable) {
    for (int n = 1; n < 200; ++n) { // the last x below maxX is often divided to n - 1
        Doubles table;
        for (int i = 0; i < n; ++i) table.push_back(5 + i * 0.3);
        for (const double x : {0.0, 1.1, 2.345, std::nextafter(table.back() - 3.9, 0), 1e9})
            EXPECT_NEAR(tableLookupByDirectMapping(table.data(), n, x, 1.1, table.back() - 3.9, 0.3),
                        std::clamp(x + 3.9, 5.0, table.back()), 1e-9)
                << n << ' ' << x;
    }
}

TEST(Resample, PointsLieBetweenTheirNeighboursAndEndsStay) {
    std::mt19937 random(3); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 400; ++round) {
        const Doubles in = randomDoubles(random, 1, round < 10 ? 40000 : 90, 1U << 31);
        const Ints whole(in.begin(), in.end());
        Doubles out(1 +
                    (round < 10 ? random() % 150 * 256 : random() % 90)); // 256: halves of a weight's step
        Ints wholeOut(out.size());
        vecResample(in.data(), lengthOf(in), out.data(), lengthOf(out));
        vecResampleInt(whole.data(), lengthOf(in), wholeOut.data(), lengthOf(out));
        EXPECT_EQ(out.back(), in.back());
        for (size_t i = 0; i + 1 < out.size(); ++i) {
            const size_t width = out.size() - 1;
            const size_t way = i * (in.size() - 1);
            const size_t j = way / width;
            const size_t next = std::min(j + 1, in.size() - 1);
            const double f = static_cast<double>(way) / static_cast<double>(width) - static_cast<double>(j);
            const auto w = static_cast<long long>((128 * (way % width) + width / 2) / width);
            ASSERT_EQ(out[i], (1 - f) * in[j] + f * in[next]) << in.size() << " to " << out.size();
            ASSERT_EQ(wholeOut[i], ((128 - w) * whole[j] + w * whole[next]) / 128) << in.size();
        }
    }
}

TEST(VectorOperations, Examples) {
    Ints rounded(3);
    double2intVec(Doubles{-2.5, 1e300, notANumber}.data(), 3, rounded.data());
    EXPECT_EQ(rounded, (Ints{-3, INT_MAX, 0}));
    Doubles vec{1, 0, 0, 2, -0.0};
    replaceZeroWithPrevOne(vec.data(), 5);
    EXPECT_EQ(vec, (Doubles{1, 1, 1, 2, 2}));
    vec[0] = 0;
    EXPECT_EQ(fatalMessage([&] { replaceZeroWithPrevOne(vec.data(), 5); }),
              "Wrong vector format" + inUtility);
    EXPECT_NEAR(gaussianLog(1, 3, 4), std::log(std::exp(-0.5) / std::sqrt(8 * std::acos(-1.0))), 1e-14);
    char buffer[] = "aaaaaaaa";
    encodeXor(buffer, 7, "\x01\x02\x03", 3);
    EXPECT_STREQ(buffer, "`cb`cb`a");
}

} // namespace
