#include "audio/pitchTracking/openPath.hpp"
#include "audio/pitchTracking/plain.hpp"
#include "support/audio.hpp"

namespace {

/// The lags that the search through recordings of any length hands on, called as often as frames are added.
Ints openPath(const std::vector<Frame>& run, const PTPARAM& p) {
    Ints chosen(run.size(), -1);
    wavepitch::pitchTracking::OpenPath path(p,
                                            [&](int frame, int lag, auto) { chosen[size_t(frame)] = lag; });
    for (const Frame& frame : run) {
        Ints lags;
        Doubles values;
        for (const PPC& candidate : frame) {
            lags.push_back(candidate.index);
            values.push_back(candidate.pfValue);
        }
        path.add({lags.data(), values.data(), lags.size(), 1.0});
        path.handOn();
    }
    path.end();
    return chosen;
}

void expectPlainPath(std::vector<Frame> run, const PTPARAM& p) {
    std::vector<Frame> plain = run;
    const Ints lags = plainPath(plain, p);
    const Ints open = openPath(run, p);
    std::vector<STRUCT_A> A;
    for (Frame& frame : run) A.push_back({lengthOf(frame), -1, frame.data()});
    Doubles pitch(run.size(), 0.0);
    A2pitchByDp(A.data(), lengthOf(A), p, pitch.data());
    for (size_t i = 0; i < run.size(); ++i) {
        for (size_t j = 0; j < run[i].size(); ++j) {
            ASSERT_EQ(run[i][j].prevIndex, plain[i][j].prevIndex) << "frame " << i << ", candidate " << j;
            ASSERT_TRUE(isSame(run[i][j].totalDist, plain[i][j].totalDist)) << i << ", candidate " << j;
        }
        ASSERT_EQ(A[i].bestIndex, lags[i]) << i;
        ASSERT_TRUE(lags[i] == -1 || open[i] == lags[i]) << i << ": " << open[i];
    }
}

TEST(Path, IsThatOfPlainLoops) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    const auto upTo = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const double special[] = {0.0, -0.0, HUGE_VAL, -HUGE_VAL, notANumber, 1e300};
    const float weights[] = {0, 1, 0.1F, -2, 1e30F};
    const auto randomFrame = [&](int kind, int spread) {
        Frame frame(size_t(upTo(upTo(3) > 0 ? 20 : 200))); // an empty one breaks the contract
        int lag = upTo(400) - 20;
        for (PPC& candidate : frame) {
            const double values[] = {double(upTo(3)), upTo(2000000000) / 1e3 - 1e6, special[upTo(6)]};
            candidate = {lag, values[kind], -7, -7.0};
            lag += 1 + upTo(spread);
        }
        return frame;
    };
    withEveryKernel([&](const char* kernel) {
        for (int round = 0; round < 300; ++round) {
            PTPARAM p = trackingDefaults(8000, PF_TYPE{upTo(2)});
            p.pfLen = 400;
            p.dpMethod = upTo(4);
            p.dpPosDiffOrder = upTo(3);
            p.indexDiffWeight = weights[upTo(5)];
            p.pfWeight = 0.37F;
            const int kind = upTo(3);
            const int spread = upTo(2) > 0 ? 1 : 8;
            std::vector<Frame> run(4);
            for (Frame& frame : run) frame = randomFrame(kind, spread);
            SCOPED_TRACE(kernel + std::to_string(round));
            ASSERT_NO_FATAL_FAILURE(expectPlainPath(run, p));
        }
    });
}

} // namespace
