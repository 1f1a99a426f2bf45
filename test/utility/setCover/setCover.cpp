#include "support/utilityTest.hpp"

#include <set>

namespace {

TEST(SetCover, EveryStepTakesTheFirstRowThatAddsMost) {
    std::mt19937 random(6); // NOLINT(cert-msc51-cpp)
    for (unsigned round = 0; round < 500; ++round) {
        const size_t rowNum = 1 + round % 12;
        Doubles sets = randomDoubles(random, rowNum, 90, 1 + round % 40);
        sets.resize(sets.size() / rowNum * rowNum);
        const double elements = *std::max_element(sets.begin(), sets.end());
        std::vector<std::set<double>> left(rowNum);
        for (size_t i = 0; i < sets.size(); ++i)
            if (sets[i] > 0) left[i % rowNum].insert(sets[i]);
        Ints chosen(round % 11, -1);
        Doubles coverage(round % 11, -1.0);
        const int colNum = lengthOf(sets) / lengthOf(left);
        const int taken =
            setCover(sets.data(), lengthOf(left), colNum, lengthOf(chosen), chosen.data(), coverage.data());
        for (size_t r = 0; r < rowNum; ++r)
            for (size_t at = r; const double element : left[r])
                EXPECT_EQ(sets[std::exchange(at, at + rowNum)], element);
        double covered = 0;
        for (size_t k = 0; k < chosen.size(); ++k) {
            const auto best = std::ranges::max_element(left, {}, &std::set<double>::size);
            const std::set<double> added = *best;
            for (auto& row : left) std::erase_if(row, [&](double e) { return added.count(e) > 0; });
            covered += static_cast<double>(added.size());
            EXPECT_EQ(static_cast<int>(k) < taken, !added.empty()) << round << ' ' << k;
            EXPECT_EQ(chosen[k], best - left.begin()) << round << ' ' << k;
            EXPECT_EQ(coverage[k], added.empty() ? 1.0 : covered / elements) << round << ' ' << k;
        }
    }
}

TEST(SetCover, WhatIsNoElementNumberIsAnEmptySlot) {
    Doubles sets{-3, notANumber, HUGE_VAL, 2.5, 2.5, 0.5};
    int chosen = -1;
    double coverage = -1;
    EXPECT_EQ(setCover(sets.data(), 1, 6, 1, &chosen, &coverage), 1);
    EXPECT_EQ(sets, (Doubles{2, 0, 0, 0, 0, 0}));
    EXPECT_EQ(coverage, 0.5);
}

} // namespace
