#include "audio/audio.hpp"
#include "audio/pitchTracking/kernel/pathKernelText.hpp"
#include "support/console.hpp"
#include "utility/rounding.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <utility>
#include <vector>

namespace {

/// The frames of a run, with the arrays that STRUCT_A points into.
struct Candidates {
    std::vector<std::vector<PPC>> candidates;
    std::vector<STRUCT_A> A;

    void add(const std::vector<std::pair<int, double>>& lagsAndValues) {
        std::vector<PPC> frame;
        for (const auto& [lag, value] : lagsAndValues) frame.push_back({lag, value, -7, 0.0});
        candidates.push_back(std::move(frame));
    }

    std::vector<STRUCT_A>& frames() {
        A.clear();
        for (auto& frame : candidates) A.push_back({static_cast<int>(frame.size()), -1, frame.data()});
        return A;
    }

    std::vector<double> pitch(const PTPARAM& ptParam) {
        std::vector<double> result(candidates.size());
        A2pitchByDp(frames().data(), static_cast<int>(candidates.size()), ptParam, result.data());
        return result;
    }
};

/// Every transition tried, one after the other.
void plainForwardPass(std::vector<STRUCT_A>& A, const PTPARAM& ptParam) {
    const auto scaled = [&](int lag) -> long long {
        if (ptParam.dpMethod == 1) return lag;
        if (ptParam.dpMethod != 2 || lag < 1 || lag >= ptParam.pfLen) return 0;
        return myRound(10.0F * cAudio::freq2pitch(static_cast<float>(ptParam.fs) / static_cast<float>(lag)));
    };
    for (size_t i = 0; i < A.size(); ++i)
        for (PPC* cur = A[i].ppc; cur != A[i].ppc + A[i].ppcLen; ++cur) {
            float best = 0.0F;
            cur->prevIndex = -1;
            for (int k = 0; i > 0 && k < A[i - 1].ppcLen; ++k) {
                const PPC& prev = A[i - 1].ppc[k];
                long long d = std::llabs(scaled(prev.index) - scaled(cur->index));
                if (ptParam.dpPosDiffOrder != 1) d *= d;
                const auto penalty = static_cast<double>(ptParam.indexDiffWeight * static_cast<float>(d));
                const bool low = ptParam.pfType == PF_AMDF;
                const auto value =
                    static_cast<float>(low ? prev.totalDist + penalty : prev.totalDist - penalty);
                if (k > 0 && !(low ? value < best : value > best)) continue;
                best = value;
                cur->prevIndex = k;
            }
            cur->totalDist = static_cast<double>(ptParam.pfWeight) * cur->pfValue;
            if (i > 0) cur->totalDist += static_cast<double>(best);
        }
}

bool sameBits(double a, double b) {
    return std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b));
}

class EveryKernel : public testing::TestWithParam<const char*> {
protected:
    EveryKernel() { setenv("WAVEPITCH_KERNEL", GetParam(), 1); }
    ~EveryKernel() override { unsetenv("WAVEPITCH_KERNEL"); }
};
INSTANTIATE_TEST_SUITE_P(Path, EveryKernel, testing::Values("portable", "avx2", "avx512"));

TEST_P(EveryKernel, ChoosesAsPlainLoopsDo) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    const double special[] = {0.0, -0.0, INFINITY, -INFINITY, NAN, 1e300};
    for (int round = 0; round < 400; ++round) {
        PTPARAM ptParam;
        const auto pfType = random() % 2 ? PF_ACF : PF_AMDF;
        cAudio::ptParamSet(&ptParam, 16000, 16, pfType, nullptr);
        ptParam.pfLen = 400;
        ptParam.dpMethod = static_cast<int>(random() % 4);
        ptParam.dpPosDiffOrder = 1 + static_cast<int>(random() % 2);
        ptParam.pfWeight = random() % 3 ? 1.0F : 0.37F;
        const float weights[] = {0.0F, 1.0F, 6.0F, 0.1F, -2.0F, 1e30F};
        ptParam.indexDiffWeight = weights[random() % std::size(weights)];
        const bool allLags = random() % 2;
        const int values = static_cast<int>(random() % 4); // few, many, special, all equal
        Candidates run;
        for (int i = 0; i < 4; ++i) {
            const int length = 1 + static_cast<int>(random() % (random() % 3 ? 20 : 200));
            int lag = static_cast<int>(random() % (random() % 8 ? 40 : 400));
            std::vector<std::pair<int, double>> frame;
            for (int j = 0; j < length; ++j) {
                lag += allLags ? 1 : static_cast<int>(random() % 9);
                double value = values == 0 ? static_cast<double>(random() % 3)
                                           : static_cast<double>(random()) / 1e3 - 2e6;
                if (values == 2 && random() % 20 == 0) value = special[random() % std::size(special)];
                frame.emplace_back(lag, values == 3 ? 5.0 : value);
            }
            run.add(frame);
        }
        Candidates plain = run;
        plainForwardPass(plain.frames(), ptParam);
        run.pitch(ptParam);
        for (size_t i = 0; i < run.candidates.size(); ++i)
            for (size_t j = 0; j < run.candidates[i].size(); ++j) {
                const PPC& a = run.candidates[i][j];
                const PPC& b = plain.candidates[i][j];
                ASSERT_EQ(a.prevIndex, b.prevIndex) << "round " << round << ", frame " << i << ", " << j;
                ASSERT_TRUE(sameBits(a.totalDist, b.totalDist)) << a.totalDist << ' ' << b.totalDist;
            }
    }
}

TEST(PathKernel, EveryWidthTakesTheSameWay) {
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 100; ++round) {
        std::vector<double> total(1 + random() % 100), prevPosition(total.size()),
            position(pathStepBlock * 2);
        for (double& x : total) x = static_cast<double>(random() % 50) + 0.1;
        for (size_t k = 0; k < prevPosition.size(); ++k) prevPosition[k] = static_cast<double>(k + 10);
        for (size_t j = 0; j < position.size(); ++j) position[j] = static_cast<double>(j + 3);
        std::vector<double> penalty(400);
        for (size_t i = 0; i < 400; ++i) penalty[i] = 0.1F * std::abs(static_cast<float>(i) - 200.0F);
        const auto result = [&](auto version, bool tabled) {
            std::vector<float> best(position.size());
            std::vector<int> prevIndex(position.size());
            version({total.data(), prevPosition.data(), total.size(), position.data(), position.size(),
                     best.data(), prevIndex.data(), tabled ? &penalty[200 - 7] : nullptr, 0.1F, false, true});
            return std::pair(best, prevIndex);
        };
        const auto narrow = result(pathStep<16>, false);
        EXPECT_EQ(narrow, result(pathStep<32>, true));
        EXPECT_EQ(narrow, result(pathStep<64>, true));
        EXPECT_EQ(narrow, result(pathStep<64>, false));
    }
}

PTPARAM simpleParam(PF_TYPE pfType, int order, float weight) {
    PTPARAM ptParam;
    cAudio::ptParamSet(&ptParam, 8000, 8, pfType, nullptr);
    ptParam.dpMethod = 1;
    ptParam.dpPosDiffOrder = order;
    ptParam.pfWeight = 1.0F;
    ptParam.indexDiffWeight = weight;
    return ptParam;
}

TEST(Path, WeighsValuesAgainstDistances) {
    const struct {
        int order;
        float weight;
        int firstLag;
        double total;
    } cases[] = {{1, 1.0F, 40, 196.0}, {2, 1.0F, 40, 196.0}, {1, 0.0F, 80, 185.0}};
    for (const auto& c : cases) {
        Candidates run;
        run.add({{40, 100.0}, {80, 90.0}});
        run.add({{41, 95.0}});
        const auto pitch = run.pitch(simpleParam(PF_AMDF, c.order, c.weight));
        EXPECT_EQ(run.A[0].bestIndex, c.firstLag) << c.order << ' ' << c.weight;
        EXPECT_EQ(run.A[1].bestIndex, 41);
        EXPECT_EQ(run.candidates[1][0].totalDist, c.total);
        EXPECT_DOUBLE_EQ(pitch[1], std::log(8000.0 / 41 / 440) * 12 / 0.69314718055995 + 69);
    }
}

TEST(Path, MeasuresInTenthsOfASemitone) {
    PTPARAM ptParam = simpleParam(PF_AMDF, 1, 1.0F);
    ptParam.dpMethod = 2;
    Candidates run;
    run.add({{40, 0.0}});
    run.add({{41, 0.0}, {20, 0.0}, {-5, 0.0}, {INT_MAX, 0.0}});
    run.pitch(ptParam);
    const double expected[] = {4.0, 120.0, 553.0, 553.0};
    for (size_t j = 0; j < 4; ++j) EXPECT_EQ(run.candidates[1][j].totalDist, expected[j]);
}

TEST(Path, EndsAtTheFirstBestOfNarrowedTotals) {
    // 16777217 narrows to 16777216, so that the second of two equal totals takes over where high is good.
    const struct {
        PF_TYPE pfType;
        std::vector<std::pair<int, double>> frame;
        int lag;
    } cases[] = {
        {PF_ACF, {{40, 5.0}, {50, 7.0}, {60, 7.0}}, 50},
        {PF_AMDF, {{40, 5.0}, {50, 3.0}, {60, 3.0}}, 50},
        {PF_ACF, {{40, 16777217.0}, {50, 16777217.0}}, 50},
        {PF_AMDF, {{40, 16777217.0}, {50, 16777217.0}}, 40},
    };
    for (const auto& c : cases) {
        Candidates run;
        run.add(c.frame);
        run.pitch(simpleParam(c.pfType, 1, 1.0F));
        EXPECT_EQ(run.A[0].bestIndex, c.lag) << c.pfType << ' ' << c.frame[0].second;
        EXPECT_EQ(run.candidates[0][0].prevIndex, -1);
    }
}

TEST(Path, KeepsToItsRunAndItsTypes) {
    Candidates cut;
    cut.add({{30, 1.0}});
    cut.add({});
    cut.add({{40, 1.0}});
    const auto pitch = cut.pitch(simpleParam(PF_ACF, 1, 1.0F));
    EXPECT_EQ(cut.A[0].bestIndex, -1);
    EXPECT_EQ(cut.A[2].bestIndex, 40);
    EXPECT_EQ(pitch[0], 0.0);

    int fixedPoint = 0;
    A2pitchByDp(&cut.A[2], 1, simpleParam(PF_ACF, 1, 1.0F), &fixedPoint);
    EXPECT_EQ(fixedPoint, static_cast<int>(pitch[2] * 1024));

    const PTPARAM unknown = simpleParam(PF_ACF, 1, 1.0F);
    EXPECT_EQ(fatalMessage([&] {
                  PTPARAM ptParam = unknown;
                  ptParam.pfType = static_cast<PF_TYPE>(7);
                  cut.pitch(ptParam);
              }),
              "Unknown ptParam.pfType=7 (line N of file ../../../../c/lib/audio/audio)");
}

} // namespace
