#include "audio/endPoint/kernel/frameKernel.hpp"

#include "audio/endPoint/made.hpp"
#include "audio/endPoint/plain.hpp"

#include <numeric>

namespace {

TEST(FrameKernel, EveryVersionEqualsThePlainLoops) {
    std::vector<wavepitch::endPoint::FrameKernel> versions;
    withEveryKernel([&](const char*) { versions.push_back(wavepitch::endPoint::frameKernel()); });
#if defined(__x86_64__)
    if (hasEightLanes()) versions.push_back(wavepitch::endPoint::frameKernelOf<eightLanes>());
#endif
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    // From 2^26 on, differences leave 32 bits.
    for (const int most : {1, 32767, (1 << 26) - 1, 1 << 26, INT_MAX / 2})
        for (size_t n = 1; n < 70; ++n) {
            SCOPED_TRACE(std::to_string(n) + " samples up to " + std::to_string(most));
            std::uniform_int_distribution<int> any(-1, 1);
            Ints x(n);
            for (int& value : x) value = most * any(random);
            x[random() % n] /= 3;
            Doubles reals(x.begin(), x.end());
            reals[random() % n] = notANumber;
            for (const auto& kernel : versions) {
                WideInts differences(x.begin(), x.end());
                EXPECT_EQ(kernel.deviation(x.data(), n, most / 3), sumOfDistances(differences, most / 3));
                EXPECT_EQ(kernel.crossings(x.data(), n), plainCrossings(x));
                EXPECT_EQ(kernel.crossingsOfDoubles(reals.data(), n), plainCrossings(reals));
                for (int order = 1; order <= 5; ++order) {
                    std::adjacent_difference(differences.begin(), differences.end(), differences.begin());
                    if (!differences.empty()) differences.erase(differences.begin());
                    EXPECT_EQ(kernel.differences(x.data(), n, order), sumOfDistances(differences, 0))
                        << order;
                }
            }
        }
}

} // namespace
