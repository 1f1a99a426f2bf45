// What a single frame's pitch function tells: candidates and clarity.
#include "audio/audio.hpp"
#include "support/console.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <numeric>
#include <vector>

namespace {

PTPARAM parameters(PF_TYPE pfType, int minIndex, int maxIndex) {
    PTPARAM ptParam;
    cAudio::ptParamSet(&ptParam, 8000, 8, PF_AMDF, nullptr);
    ptParam.pfType = pfType;
    ptParam.maxPitch = 200.0F; // down to lag 0
    ptParam.minIndex = minIndex;
    ptParam.maxIndex = maxIndex;
    return ptParam;
}

std::vector<int> candidates(const std::vector<double>& pf, const PTPARAM& ptParam) {
    std::vector<int> lags(pf.size());
    lags.resize(static_cast<size_t>(pf2ppc(pf.data(), static_cast<int>(pf.size()), ptParam, lags.data())));
    return lags;
}

TEST(Candidates, AreTheMiddlesOfStrictExtrema) {
    const struct {
        PF_TYPE pfType;
        std::vector<double> pf;
        std::vector<int> lags;
    } cases[] = {
        {PF_AMDF, {9, 5, 2, 2, 6, 7, 3, 1, 4}, {3, 7}},
        {PF_ACF, {10, 4, 6, 6, 6, 2, 5}, {3}},
        {PF_AMDF, {9, 1, 1, 1, 1, 2}, {3}},
        {PF_AMDF, {5, 4, 3, 2}, {}},
        {PF_ACF, {1, 1, 1}, {}},
        {PF_AMDF, {3, 1, NAN, 2, 1, 2}, {4}},
        {PF_AMDF, {}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(candidates(c.pf, parameters(c.pfType, 0, 0)), c.lags) << testing::PrintToString(c.pf);
    EXPECT_EQ(fatalMessage([] { candidates({1}, parameters(static_cast<PF_TYPE>(-3), 0, 0)); }),
              "Unknown ptParam.pfType=-3 (line N of file ../../../../c/lib/audio/audio)");
}

TEST(Candidates, LieInThePitchRange) {
    const struct {
        float minPitch, maxPitch;
        int first, count;
    } cases[] = {{30, 84, 8, 120}, {60, 84, 8, 24}, {30, 200, 1, 127},
                 {-5, 84, 0, 0},   {0, 0, 0, 0},    {30, -1, 0, 0}};
    for (const auto& c : cases) {
        PTPARAM ptParam = parameters(static_cast<PF_TYPE>(9), 0, 0);
        ptParam.dpUseLocalOptim = 0; // then the type does not matter
        ptParam.minPitch = c.minPitch;
        ptParam.maxPitch = c.maxPitch;
        std::vector<int> expected(static_cast<size_t>(c.count));
        std::iota(expected.begin(), expected.end(), c.first);
        EXPECT_EQ(candidates(std::vector<double>(128), ptParam), expected) << c.minPitch << ' ' << c.maxPitch;
    }
}

TEST(Clarity, ComparesTheExtremumWithItsFunction) {
    const struct {
        PF_TYPE pfType;
        std::vector<double> pf;
        int minIndex, maxIndex;
        double clarity, pitch;
    } cases[] = {
        {PF_ACF, {100, 80, 60, 70, 90, 50}, 1, 5, 0.9, 95.2131},
        {PF_AMDF, {0, 50, 80, 60, 10, 40, 70}, 1, 6, 0.875, 95.2131},
        {PF_ACF, {100, 80, 60, 70, 90, 50}, 4, 3, 0, 0}, // no lag in the range
        {PF_ACF, {100, 80, 60, 70, 90, 50}, INT_MIN, INT_MAX, 0.9, 95.2131},
        {PF_ACF, {50, 40, 60, 60}, 1, 3, 0, 107.2131}, // above the value at lag 0; the first lag
        {PF_ACF, {50, 40, -9, -8}, 1, 3, 0, 100.1935}, // below 0
        {PF_ACF, {0, 0, 0}, 1, 2, 0, 119.2131},        // silence
        {PF_AMDF, {0, 0, 0}, 1, 2, 0, 119.2131},
        {PF_AMDF, {0, 1, 2, 3}, 2, 3, 1 - 2.0 / 3, 107.2131}, // never falls: from minIndex on
    };
    for (const auto& c : cases) {
        double clarity = -1.0;
        const auto pfLen = static_cast<int>(c.pf.size());
        const PTPARAM ptParam = parameters(c.pfType, c.minIndex, c.maxIndex);
        EXPECT_NEAR(pf2pitchClarity(c.pf.data(), pfLen, ptParam, &clarity), c.pitch, 1e-4);
        EXPECT_NEAR(clarity, c.clarity, 1e-7) << testing::PrintToString(c.pf);
        EXPECT_NEAR(pf2pitchClarity(c.pf.data(), pfLen, ptParam, nullptr), c.pitch, 1e-4);
    }
    const int pf[] = {100, 80, 60, 70, 90, 50};
    int clarity = 0;
    EXPECT_EQ(pf2pitchClarity(pf, 6, parameters(PF_ACF, 1, 5), &clarity), 97498); // 95.2131 * 1024
    EXPECT_EQ(clarity, 921);
    EXPECT_EQ(
        fatalMessage([&] { pf2pitchClarity(pf, 6, parameters(static_cast<PF_TYPE>(2), 1, 5), nullptr); }),
        "Unknown ptParam.pfType=2 (line N of file ../../../../c/lib/audio/audio)");
}

} // namespace
