#include "support/utilityTest.hpp"

namespace {

TEST(SetCover, EveryStepTakesTheFirstRowThatAddsMost) {
    const double no = notANumber;
    const Doubles rows[] = {{2, 1, 2, 0},     {6, 5, 4, 3},   {1, 2, 7, 1},
                            {8.9, 6, no, -1}, {8, 8, 0.5, 0}, {10, HUGE_VAL, 0, 0}};
    Doubles sets;
    for (size_t column = 0; column < 4; ++column)
        for (const Doubles& row : rows) sets.push_back(row[column]);
    Ints chosen(6, 9);
    Doubles coverage(6, 9);
    EXPECT_EQ(setCover(sets.data(), 6, 4, 6, chosen.data(), coverage.data()), 4); // 9 is in no row
    EXPECT_EQ(text(chosen), "1 2 3 5 0 0");
    EXPECT_EQ(text(coverage), "0.4 0.7 0.8 0.9 1 1");
    // Distinct elements in order, column after column.
    EXPECT_EQ(text(sets), "1 3 1 6 8 10 2 4 2 8 0 0 0 5 7 0 0 0 0 6 0 0 0 0");
}

} // namespace
