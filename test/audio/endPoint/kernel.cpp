#include "audio/endPoint/kernel/frameKernel.hpp"

#include "audio/endPoint/made.hpp"

namespace {

using Wide = std::vector<std::int64_t>;

/// The binomial coefficients arise as neighbours are subtracted, order times over.
std::int64_t plainDifferences(Wide x, int order) {
    for (; order > 0 && !x.empty(); --order, x.pop_back())
        for (std::size_t i = 0; i + 1 < x.size(); ++i) x[i] = x[i + 1] - x[i];
    std::int64_t sum = 0;
    for (const auto d : x) sum += std::min<std::int64_t>(std::abs(d), INT_MAX);
    return sum;
}

template <typename Sample>
int plainCrossings(const Sample* x, std::size_t n) {
    int count = 0;
    for (std::size_t j = 1; j < n; ++j) count += (x[j - 1] > 0 && x[j] < 0) || (x[j - 1] < 0 && x[j] > 0);
    return count;
}

TEST(FrameKernel, EveryVersionEqualsThePlainLoops) {
    std::vector<wavepitch::endPoint::FrameKernel> versions;
    withEveryKernel([&](const char*) { versions.push_back(wavepitch::endPoint::frameKernel()); });
#if defined(__x86_64__)
    if (hasEightLanes()) versions.push_back(wavepitch::endPoint::frameKernelOf<eightLanes>());
#endif
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    // Samples from 2^26 on have differences that leave 32 bits.
    for (const int most : {0, 1, 128, 32767, (1 << 26) - 1, 1 << 27, INT_MAX})
        for (const std::size_t n :
             {0U, 1U, 2U, 5U, 6U, 7U, 8U, 9U, 15U, 16U, 17U, 20U, 21U, 33U, 65U, 130U, 255U, 256U}) {
            std::uniform_int_distribution<int> any(-most - 1, most);
            Ints wave(n + 3);
            for (int& x : wave) x = random() % 3 ? any(random) : random() % 2 ? most : -most - 1;
            Doubles reals(wave.begin(), wave.end());
            for (double& x : reals) x = random() % 9 ? x : notANumber;
            const int* x = wave.data() + random() % 3;
            std::int64_t deviation = 0;
            for (std::size_t i = 0; i < n; ++i) deviation += std::abs(std::int64_t{x[i]} - x[0]);
            for (const auto& kernel : versions) {
                EXPECT_EQ(kernel.deviation(x, n, x[0]), deviation) << n << " samples up to " << most;
                EXPECT_EQ(kernel.crossings(x, n), plainCrossings(x, n)) << n << ' ' << most;
                EXPECT_EQ(kernel.crossingsOfDoubles(&reals[1], n), plainCrossings(&reals[1], n)) << n;
                for (int k = 1; k <= 5; ++k)
                    EXPECT_EQ(kernel.differences(x, n, k), plainDifferences({x, x + n}, k)) << n << ' ' << k;
            }
        }
}

} // namespace
