#include "audio/audio.hpp"
#include "audio/pitchTracking/kernel/pathKernelText.hpp"
#include "utility/rounding.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <random>

namespace {

using Frame = std::vector<std::pair<int, double>>; // lags and values

/// A run of frames, searched.
struct Searched {
    std::vector<std::vector<PPC>> ppc;
    std::vector<STRUCT_A> A;
    std::vector<double> pitch;

    Searched(const std::vector<Frame>& frames, const PTPARAM& p) : ppc(frames.size()), pitch(frames.size()) {
        for (size_t i = 0; i < frames.size(); ++i) {
            for (const auto& [lag, value] : frames[i]) ppc[i].push_back({lag, value, -7, -7.0});
            A.push_back({static_cast<int>(ppc[i].size()), -1, ppc[i].data()});
        }
        A2pitchByDp(A.data(), static_cast<int>(A.size()), p, pitch.data());
    }
};

PTPARAM parameters(int pfType, int dpMethod, int dpPosDiffOrder, float indexDiffWeight) {
    PTPARAM p;
    cAudio::ptParamSet(&p, 8000, 8, PF_AMDF, nullptr);
    p.pfType = static_cast<PF_TYPE>(pfType);
    p.dpMethod = dpMethod;
    p.dpPosDiffOrder = dpPosDiffOrder;
    p.indexDiffWeight = indexDiffWeight;
    return p;
}

/// The totals and predecessors that come of trying every transition, one after the other.
void expectPlainLoops(const Searched& run, const PTPARAM& p) {
    const auto scaled = [&](int lag) -> long long {
        if (p.dpMethod != 2 || lag < 1 || lag >= p.pfLen) return p.dpMethod == 1 ? lag : 0;
        return myRound(10.0F * cAudio::freq2pitch(static_cast<float>(p.fs) / static_cast<float>(lag)));
    };
    const bool low = p.pfType == PF_AMDF;
    for (size_t i = 0; i < run.ppc.size(); ++i)
        for (const PPC& cur : run.ppc[i]) {
            float best = 0.0F;
            int prevIndex = -1;
            for (int k = 0; i > 0 && k < run.A[i - 1].ppcLen; ++k) {
                const PPC& prev = run.A[i - 1].ppc[k];
                long long d = std::llabs(scaled(prev.index) - scaled(cur.index));
                if (p.dpPosDiffOrder != 1) d *= d;
                const auto penalty = static_cast<double>(p.indexDiffWeight * static_cast<float>(d));
                const auto value =
                    static_cast<float>(low ? prev.totalDist + penalty : prev.totalDist - penalty);
                if (k > 0 && !(low ? value < best : value > best)) continue;
                best = value;
                prevIndex = k;
            }
            double total = static_cast<double>(p.pfWeight) * cur.pfValue;
            if (i > 0) total += static_cast<double>(best);
            ASSERT_EQ(cur.prevIndex, prevIndex) << "frame " << i << ", lag " << cur.index;
            ASSERT_TRUE(std::memcmp(&cur.totalDist, &total, sizeof total) == 0 || std::isnan(total)) << total;
        }
}

TEST(Path, ChoosesAsPlainLoopsDo) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const double special[] = {0.0, -0.0, HUGE_VAL, -HUGE_VAL, std::nan(""), 1e300};
    const float weights[] = {0.0F, 1.0F, 6.0F, 0.1F, -2.0F, 1e30F};
    const char* kernels[] = {"portable", "avx2", "avx512"};
    for (int round = 0; round < 900; ++round) {
        PTPARAM p = parameters(upTo(2), upTo(4), 1 + upTo(2), weights[upTo(6)]);
        p.pfLen = 400;
        p.pfWeight = upTo(3) ? 1.0F : 0.37F;
        const bool everyLag = upTo(2) == 0;
        const int values = upTo(4); // few, many, special, all equal
        std::vector<Frame> frames(4);
        for (Frame& frame : frames)
            for (int lag = upTo(upTo(8) ? 40 : 400), left = 1 + upTo(upTo(3) ? 20 : 200); left > 0; --left) {
                double value = values == 0 ? upTo(3) : upTo(2000000000) / 1e3 - 1e6;
                if (values == 2 && upTo(20) == 0) value = special[upTo(6)];
                frame.emplace_back(lag, values == 3 ? 5.0 : value);
                lag += everyLag ? 1 : upTo(9);
            }
        setenv("WAVEPITCH_KERNEL", kernels[round % 3], 1);
        SCOPED_TRACE(round);
        expectPlainLoops(Searched(frames, p), p);
    }
    unsetenv("WAVEPITCH_KERNEL");
}

TEST(Path, WidestKernelTakesTheSameWay) {
    std::vector<double> total, position, penalty;
    for (int i = 0; i < 128; ++i) position.push_back(i);
    for (int i = 0; i < 100; ++i) total.push_back(i * 7919 % 50 + 0.1);
    for (int d = -128; d < 128; ++d)
        penalty.push_back(static_cast<double>(0.1F * static_cast<float>(std::abs(d))));
    const auto result = [&](auto version, const double* tabled, bool low) {
        std::pair best(std::vector<float>(128), std::vector<int>(128));
        std::vector<double> promised(128);
        version({total.data(), position.data(), 100, position.data(), 128, best.first.data(),
                 best.second.data(), tabled, 0, low, promised.data(), 0.1F, false, low});
        return best;
    };
    for (const bool low : {false, true})
        for (const double* tabled : {&penalty[128], static_cast<double*>(nullptr)})
            EXPECT_EQ(result(pathStep<64>, tabled, low), result(pathStep<16>, nullptr, low)) << low;
}

TEST(Path, WeighsValuesAgainstDistances) {
    const std::vector<Frame> two{{{40, 100}, {80, 90}}, {{41, 95}}};
    const std::tuple<int, int, float, std::vector<Frame>, int, double> cases[] = {
        {1, 1, 1, two, 40, 196}, // dpMethod, dpPosDiffOrder, weight; the first frame's lag, a final total
        {1, 1, 0, two, 80, 185},
        {2, 1, 1, {{{40, 0}}, {{41, 0}}}, 40, 4},
        {2, 1, 1, {{{40, 0}}, {{INT_MAX, 0}, {INT_MIN, 0}}}, 40, 553}, // no such lag
        {1, 1, 1, {{{40, 0}}, {}, {{41, 7}}}, -1, 7},
    };
    for (const auto& [method, order, weight, frames, lag, total] : cases) {
        const Searched run(frames, parameters(PF_AMDF, method, order, weight));
        EXPECT_EQ(run.A[0].bestIndex, lag) << total;
        EXPECT_EQ(run.ppc.back()[0].totalDist, total) << lag;
        EXPECT_EQ(run.pitch[0], lag < 0 ? 0.0 : std::log(8000.0 / lag / 440) * 12 / 0.69314718055995 + 69);
    }
    // 16777217 narrows to 16777216, so the second of two equal totals takes over where high is good.
    for (const auto& [pfType, lag] : {std::pair(1, 50), {0, 40}})
        EXPECT_EQ(Searched({{{40, 16777217}, {50, 16777217}}}, parameters(pfType, 1, 1, 1)).A[0].bestIndex,
                  lag);
}

} // namespace
