#include "audio/endPoint/curves.hpp"

#include "audio/endPoint/made.hpp"

namespace {

using namespace wavepitch::endPoint;

TEST(EndPointCurves, LevelsOfAllFramesAndTheThresholdsOnThem) {
    const int waveLen = 12800;
    const Ints wave = made<int>(waveLen, {{0, waveLen, 1}, {6400, waveLen, 1000}});
    const Doubles reals(wave.begin(), wave.end());
    EPDPARAM param;
    cAudio::epdParamSet(8000, param);
    param.vhRatio = 5;
    const struct {
        Text detector;
        Curve curve;
        size_t frameNum;
        double last;
        Text thresholds;
    } cases[] = {
        {"volume", volumeCurve(wave.data(), waveLen, param), 100, 128000, "12915"},
        {"volume, ASHOD", volumeAndAshodCurve(wave.data(), waveLen, param), 100, 1056000, "212044"},
        {"two thresholds", twoThresholdCurve(wave.data(), waveLen), 39, 512000, "5120 10240"},
        {"volume, crossings", volumeAndZcrCurve(wave.data(), waveLen), 157, 320000, "20000 40000"},
        {"characters", characterCurve(reals.data(), waveLen), 74, 60, "30 40"},
        {"handset", handsetCurve(reals.data(), waveLen, 8000), 99, 256000, "38400"},
        {"handset, too early", handsetCurve(reals.data(), 1536, 8000), 11, 256, ""},
    };
    for (const auto& [detector, curve, frameNum, last, thresholds] : cases) {
        ASSERT_EQ(curve.values.size(), frameNum) << detector;
        EXPECT_EQ(curve.values.back(), last) << detector;
        EXPECT_EQ(text(curve.thresholds), thresholds) << detector;
    }
    const Curve none = twoThresholdCurve(nullptr, 0);
    EXPECT_TRUE(none.values.empty());
    EXPECT_TRUE(none.thresholds.empty());
}

} // namespace
