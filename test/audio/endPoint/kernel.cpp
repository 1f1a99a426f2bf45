#include "audio/endPoint/kernel/frameKernel.hpp"

#include "audio/endPoint/kernel/frameKernelText.hpp"
#include "utility/vector/kernel/intMedian.hpp"
#include "utility/vector/kernel/intMedianText.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>
#include <vector>

namespace {

std::int64_t plainDeviation(const int* x, std::size_t n, int centre) {
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < n; ++i) sum += std::llabs(std::int64_t{x[i]} - centre);
    return sum;
}

template <typename Sample>
int plainCrossings(const Sample* x, std::size_t n) {
    int count = 0;
    for (std::size_t j = 1; j < n; ++j)
        if ((x[j - 1] > 0 && x[j] < 0) || (x[j - 1] < 0 && x[j] > 0)) ++count;
    return count;
}

std::int64_t plainDifferences(const int* x, std::size_t n, int order) {
    const std::int64_t coefficients[5][6] = {
        {-1, 1}, {-1, 2, -1}, {-1, 3, -3, 1}, {-1, 4, -6, 4, -1}, {-1, 5, -10, 10, -5, 1}};
    const auto k = static_cast<std::size_t>(order);
    std::int64_t sum = 0;
    for (std::size_t i = 0; i + k < n; ++i) {
        std::int64_t d = 0;
        for (std::size_t j = 0; j <= k; ++j) d += coefficients[order - 1][j] * x[i + j];
        sum += std::min<std::int64_t>(std::llabs(d), INT_MAX);
    }
    return sum;
}

int plainMedian(std::vector<std::int64_t> x) {
    std::sort(x.begin(), x.end());
    return static_cast<int>((x[(x.size() - 1) / 2] + x[x.size() / 2]) / 2);
}

/// Versions of the kernels: every width of the text (512 bits too, whatever the processor), then those that
/// the processor runs.
struct Version {
    const char* name;
    FrameKernel frame;
    IntMedian median;
};

std::vector<Version> versions() {
    std::vector<Version> all{{"16 bytes", kernelOfWidth<16>(), medianOfInts<16>},
                             {"32 bytes", kernelOfWidth<32>(), medianOfInts<32>},
                             {"64 bytes", kernelOfWidth<64>(), medianOfInts<64>}};
    for (const auto set : {InstructionSet::portable, InstructionSet::avx2, InstructionSet::avx512})
        if (set <= widestInstructionSet())
            all.push_back({"instruction set", frameKernel(set), intMedian(set)});
    return all;
}

TEST(FrameKernel, EveryVersionEqualsThePlainLoops) {
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    // 2^26 and its neighbours: where the differences leave 32 bits
    for (const int most : {0, 1, 128, 32768, (1 << 26) - 1, 1 << 26, INT_MAX}) {
        std::vector<int> wave(400);
        for (int& x : wave)
            x = random() % 3 == 0 ? (random() % 2 ? most : -most)
                                  : std::uniform_int_distribution<int>(-most, most)(random);
        const std::vector<double> real(wave.begin(), wave.end());
        for (const std::size_t n :
             {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 15, 16, 17, 20, 21, 31, 32, 33, 65, 130, 256, 399})
            for (const auto& [name, frame, median] : versions()) {
                const int* x = wave.data() + random() % (wave.size() - n);
                const double* y = real.data() + (x - wave.data());
                const auto where = ::testing::Message() << name << ", " << n << " samples up to " << most;
                const int centre = x[random() % (n + 1)];
                EXPECT_EQ(frame.deviation(x, n, centre), plainDeviation(x, n, centre)) << where;
                EXPECT_EQ(frame.crossings(x, n), plainCrossings(x, n)) << where;
                EXPECT_EQ(frame.crossingsOfDoubles(y, n), plainCrossings(y, n)) << where;
                for (int order = 1; order <= 5; ++order)
                    EXPECT_EQ(frame.differences(x, n, order), plainDifferences(x, n, order))
                        << where << order;
                if (n == 0) continue;
                EXPECT_EQ(median(x, static_cast<int>(n)), plainMedian({x, x + n})) << where;
            }
    }
}

TEST(FrameKernel, NotANumberAndTheLeastIntAreNoTrap) {
    const std::vector<double> real{1, -1, NAN, -1, 1, -INFINITY, INFINITY, NAN, 5};
    const std::vector<int> least(40, INT_MIN);
    for (const auto& [name, frame, median] : versions()) {
        EXPECT_EQ(frame.crossingsOfDoubles(real.data(), real.size()), 4) << name;
        EXPECT_EQ(frame.deviation(least.data(), least.size(), INT_MAX), 40LL * UINT_MAX) << name;
        EXPECT_EQ(frame.differences(least.data(), least.size(), 5), 0) << name;
        EXPECT_EQ(median(least.data(), 40), INT_MIN) << name;
    }
}

} // namespace
