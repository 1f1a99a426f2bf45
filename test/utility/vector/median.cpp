// The median's kernel, and the selection that decides among values which compare equal or unordered.
#include "utility/vector/median.hpp"
#include "support/audio.hpp"
#include "utility/vector/kernel/intMedian.hpp"
#include "utility/vector/plain.hpp"

namespace {

TEST(IntMedian, EveryVersionFindsTheMiddleOfTheSortedValues) {
    std::vector<wavepitch::utility::IntMedian> versions;
    withEveryKernel([&](const char*) { versions.push_back(wavepitch::utility::intMedian()); });
#if defined(__x86_64__)
    if (hasEightLanes()) versions.push_back(wavepitch::utility::intMedianOf<eightLanes>);
#endif
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    for (const int most : {0, 3, 32767, INT_MAX})
        for (const int n : {1, 2, 5, 8, 15, 16, 17, 31, 32, 33, 65, 130, 256}) {
            std::uniform_int_distribution<int> any(-most - 1, most);
            Ints wave(static_cast<std::size_t>(n) + 1);
            for (int& x : wave) x = any(random);
            const int* x = wave.data() + 1;
            std::vector<std::int64_t> sorted(x, x + n);
            std::sort(sorted.begin(), sorted.end());
            const std::size_t lower = static_cast<std::size_t>(n - 1) / 2;
            const std::int64_t both = sorted[lower] + sorted[static_cast<std::size_t>(n) / 2];
            for (const auto median : versions) EXPECT_EQ(median(x, n), both / 2) << n << " up to " << most;
        }
}

TEST(Median, IsThatOfTheDefiningSelection) {
    std::mt19937 random(5); // NOLINT(cert-msc51-cpp)
    const auto oneIn = [&](unsigned n) { return random() % n == 0; };
    for (unsigned round = 0; round < 4000; ++round) {
        // Long ones in an order that takes quadratically many exchanges.
        const int n = 1 + static_cast<int>(round % 40 == 0 ? 500 + random() % 2 : random() % 24);
        const int slope = static_cast<int>(round / 40 % 3) - 1;
        Doubles v;
        for (int i = 0; i < n; ++i) {
            const int scattered = static_cast<int>(random() % (round % 4 == 0 ? 2 : 16)) - 8;
            const int value = scattered + slope * (i - n / 2);
            v.push_back(value);
            if (round % 3 > 0 && std::abs(value) < 5) v.back() = oneIn(2) ? -0.0 : 0.0;
            if (round % 3 > 1 && oneIn(9)) v.back() = notANumber;
        }
        const double expected = medianByDefinition(v);
        EXPECT_TRUE(isSame(vecMedian(v.data(), n), expected)) << round << ", " << n << ": " << expected;
        EXPECT_TRUE(isSame(vecMedianInPlace(v.data(), n), expected)) << round << ", in place";
    }
    EXPECT_EQ(vecMedian(std::vector<short>{-3, 0}.data(), 2), -1); // truncated
    EXPECT_EQ(vecMedian(Doubles().data(), 0), 0);
}

} // namespace
