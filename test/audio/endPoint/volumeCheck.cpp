#include "audio/endPoint/made.hpp"

#include <filesystem>
#include <fstream>

namespace {

TEST(VolumeCheck, CodesAtTheirThresholds) {
    const std::tuple<Text, int, double, double, int, int, int> cases[] = {
        {"fit, with one clipped sample", 200, 140, 0, 1, 31130, 0},
        {"too quiet, but not noisy", 200, 139, 30, 0, 0, 1},
        {"noisy, and too quiet", 200, 50, 31, 0, 0, 2},
        {"one in 199", 199, 140, 99, 1, 31130, 3},
        {"two, below", 200, 140, 0, 2, -31130, 3},
        {"beside the limit", 200, 140, 0, 9, -31129, 0},
        {"no whole frame", 0, 140, 140, 1, 32767, 1}};
    for (const auto& [what, frameNum, loud, quiet, saturated, peak, code] : cases) {
        const int n = 160 * frameNum + 160;
        Ints wave = made<int>(n - 1, {{0, n - 1, quiet}, {0, std::min(n - 1, 800), loud}});
        wave.resize(static_cast<std::size_t>(frameNum ? n : n - 1), wave.back());
        std::fill_n(wave.begin(), saturated, peak);
        EXPECT_EQ(cAudio::waveVolumeCheck(wave.data(), lengthOf(wave), ""), code) << what;
    }
}

TEST(VolumeCheck, ParameterFiles) {
    std::filesystem::current_path(testing::TempDir());
    std::ofstream("check.txt") << "minVolTh = 7 % quiet\nmaxVolTh=150\nminVolTh=8.5\n";
    VOL_CHECK_PRM prm{1, 2, 3, 4};
    testing::internal::CaptureStdout();
    for (const char* file : {"check.txt", static_cast<const char*>(nullptr)}) {
        cAudio::volCheckPrmRead(file, &prm);
        cAudio::volCheckPrmPrint(&prm);
    }
    EXPECT_EQ(onOneLine(testing::internal::GetCapturedStdout(), "volCheckPrm->"),
              "volCheckPrm->maxVolTh=150 minVolTh=8.5 satAmpRatio=3 satSampleCountRatioTh=4 maxVolTh=140 "
              "minVolTh=30 "
              "satAmpRatio=0.95 satSampleCountRatioTh=0.005 "
              "(line N, file=../../../../c/lib/audio/audio)\n");

    const Ints wave = made<int>(1600, {{0, 800, 145}}); // the file's level, else defaults
    EXPECT_EQ(cAudio::waveVolumeCheck(wave.data(), 1600, "check.txt"), 1);
    std::ofstream("check.txt") << "satAmpRatio=0.5\nMaxVolTh=3\nminVolTh=1\n";
    EXPECT_EQ(fatalMessage([&] { cAudio::volCheckPrmRead("check.txt", &prm); }),
              "Error in parsing check.txt, unknown key = MaxVolTh (line N in ../../../../c/lib/audio/audio)");
    EXPECT_TRUE(prm.satAmpRatio == 0.5F && prm.minVolTh == 30.0F) << "the pairs before it have been stored";
}

} // namespace
