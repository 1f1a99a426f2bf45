#include "audio/pitchTracking/kernel/pathStep.hpp"
#include "support/audio.hpp"
#include "utility/rounding.hpp"

namespace {

using Frame = std::vector<PPC>;

/// The path by trying every transition, one after the other: sets totals and predecessors, and returns the
/// lag chosen for each frame, -1 for none.
Ints plainPath(std::vector<Frame>& run, const PTPARAM& p) {
    const auto scaled = [&](int lag) -> double {
        if (p.dpMethod != 2 || lag < 1 || lag >= p.pfLen) return p.dpMethod == 1 ? lag : 0;
        return myRound(10.0F * cAudio::freq2pitch(static_cast<float>(p.fs) / static_cast<float>(lag)));
    };
    const bool low = p.pfType == PF_AMDF;
    const auto isBetter = [&](double value, double best) { return low ? value < best : value > best; };
    const auto narrowed = [](double x) { return static_cast<double>(static_cast<float>(x)); };
    int chosen = -1; // in the frame at hand
    for (size_t i = 0; i < run.size(); ++i) {
        chosen = -1;
        double bestTotal = 0.0;
        for (PPC& cur : run[i]) {
            double best = -0.0; // changes no sum
            cur.prevIndex = -1;
            for (int k = 0; i > 0 && k < lengthOf(run[i - 1]); ++k) {
                const PPC& prev = run[i - 1][size_t(k)];
                double d = std::abs(scaled(prev.index) - scaled(cur.index));
                if (p.dpPosDiffOrder != 1) d *= d;
                const auto penalty = static_cast<double>(p.indexDiffWeight * static_cast<float>(d));
                const double value = narrowed(prev.totalDist + (low ? penalty : -penalty));
                if (k > 0 && !isBetter(value, best)) continue;
                best = value;
                cur.prevIndex = k;
            }
            cur.totalDist = best + static_cast<double>(p.pfWeight) * cur.pfValue;
            if (chosen >= 0 && !isBetter(cur.totalDist, bestTotal)) continue;
            bestTotal = narrowed(cur.totalDist);
            chosen = static_cast<int>(&cur - run[i].data());
        }
    }
    Ints lags(run.size(), -1);
    for (size_t i = run.size(); i-- > 0 && chosen >= 0; chosen = run[i][size_t(chosen)].prevIndex)
        lags[i] = run[i][size_t(chosen)].index;
    return lags;
}

void expectPlainPath(std::vector<Frame> run, const PTPARAM& p) {
    std::vector<Frame> plain = run;
    const Ints lags = plainPath(plain, p);
    std::vector<STRUCT_A> A;
    for (Frame& frame : run) A.push_back({lengthOf(frame), -1, frame.data()});
    Doubles pitch(run.size(), 0.0);
    A2pitchByDp(A.data(), lengthOf(A), p, pitch.data());
    for (size_t i = 0; i < run.size(); ++i) {
        for (size_t j = 0; j < run[i].size(); ++j) {
            const PPC &found = run[i][j], &expected = plain[i][j];
            ASSERT_TRUE(found.prevIndex == expected.prevIndex && isSame(found.totalDist, expected.totalDist))
                << "frame " << i << ", candidate " << j;
        }
        ASSERT_EQ(A[i].bestIndex, lags[i]) << i;
        const double semitones = std::log(8000.0 / lags[i] / 440) * 12 / 0.69314718055995 + 69;
        ASSERT_TRUE(isSame(pitch[i], lags[i] == -1 ? 0.0 : semitones)) << i << ": " << pitch[i];
    }
}

TEST(Path, IsThatOfPlainLoops) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const double special[] = {0.0, -0.0, HUGE_VAL, -HUGE_VAL, notANumber, 1e300};
    const float weights[] = {0.0F, 1.0F, 6.0F, 0.1F, -2.0F, 1e30F};
    withEveryKernel([&](const char* kernel) {
        for (int round = 0; round < 300; ++round) {
            PTPARAM p = trackingDefaults(8000, PF_TYPE{upTo(2)});
            p.pfLen = 400;
            p.dpMethod = upTo(4);
            p.dpPosDiffOrder = 1 + upTo(2);
            p.indexDiffWeight = weights[upTo(6)];
            p.pfWeight = upTo(3) ? 1.0F : 0.37F;
            const int values = upTo(4), spread = upTo(2) * 8 + 1; // values: few, many, special, all equal
            std::vector<Frame> run(4);
            for (Frame& frame : run) // one in 20 breaks the contract: it is empty
                for (int lag = upTo(upTo(8) ? 40 : 400), left = upTo(20) ? 1 + upTo(upTo(3) ? 20 : 200) : 0;
                     left > 0; --left) {
                    double value = values == 0 ? upTo(3) : upTo(2000000000) / 1e3 - 1e6;
                    if (values == 2 && upTo(20) == 0) value = special[upTo(6)];
                    const int noLag = upTo(2) ? INT_MAX : INT_MIN;
                    frame.push_back({upTo(200) ? lag : noLag, values == 3 ? 5.0 : value, -7, -7.0});
                    lag += spread == 1 ? 1 : upTo(spread);
                }
            SCOPED_TRACE(kernel + std::to_string(round));
            ASSERT_NO_FATAL_FAILURE(expectPlainPath(run, p));
        }
    });
}

#if defined(__x86_64__)
TEST(Path, WidestKernelTakesTheSameWay) {
    using namespace wavepitch;
    using pitchTracking::bestPredecessors;
    if (!hasEightLanes()) GTEST_SKIP() << "no AVX2";
    Doubles total(128), position(128), cost(256);
    for (int i = 0; i < 128; ++i) {
        total[size_t(i)] = i * 7919 % 50 + 0.1;
        position[size_t(i)] = i;
    }
    for (const int kind : {0, 1, 2, 3}) {
        const bool squared = kind < 2;
        const bool low = kind % 2 == 0;
        const pitchTracking::Transition transition{low ? 0.1F : -0.1F, squared, low};
        for (int d = -128; d < 128; ++d)
            cost[size_t(d + 128)] = double(transition.signedWeight * float(squared ? d * d : std::abs(d)));
        const pitchTracking::PathColumn column{total.data(), position.data(), 128};
        const auto result = [&](auto version, const double* tabled) {
            std::pair best(std::vector<float>(128), Ints(128));
            version({column, column, transition, tabled}, best.first.data(), best.second.data());
            return best;
        };
        for (const double* tabled : {&cost[128], static_cast<double*>(nullptr)})
            EXPECT_EQ(result(bestPredecessors<eightLanes>, tabled),
                      result(bestPredecessors<InstructionSet::portable>, nullptr))
                << kind;
    }
}
#endif

} // namespace
