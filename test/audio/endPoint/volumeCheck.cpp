#include "audio/endPoint/made.hpp"

#include <fstream>

namespace {

TEST(VolumeCheck, CodesAtTheirThresholds) {
    const struct {
        Text what;
        double loud, quiet;
        int saturated, peak;
        int code;
        int frameNum = 200;
    } cases[] = {{"fit, at both levels", 140, 30, 0, 0, 0},
                 {"too quiet", 139, 30, 0, 0, 1},
                 {"noisy, and too quiet", 50, 31, 0, 0, 2},
                 {"one clipped in 200", 140, 0, 1, 31130, 0},
                 {"one in 199, and noisy", 140, 99, 1, 31130, 3, 199},
                 {"two, below", 140, 0, 2, -31130, 3},
                 {"beside the limit", 140, 0, 9, -31129, 0}};
    for (const auto& [what, loud, quiet, saturated, peak, code, frameNum] : cases) {
        const int waveLen = 160 * (frameNum + 1);
        Ints wave = made<int>(waveLen, {{0, waveLen, quiet}, {0, 800, loud}});
        std::fill_n(wave.begin(), saturated, peak);
        EXPECT_EQ(cAudio::waveVolumeCheck(wave.data(), waveLen, ""), code) << what;
    }
    EXPECT_EQ(cAudio::waveVolumeCheck(Ints(319, 32767).data(), 319, ""), 1) << "no whole frame";
}

TEST(VolumeCheck, AFileSetsItsKeysAndNoFileTheDefaults) {
    std::ofstream("check.txt") << "minVolTh = 7 % quiet\nmaxVolTh=150\nminVolTh=8.5\n";
    VOL_CHECK_PRM prm{1, 2, 3, 4};
    testing::internal::CaptureStdout();
    for (const char* file : {"check.txt", static_cast<const char*>(nullptr)}) {
        cAudio::volCheckPrmRead(file, &prm);
        cAudio::volCheckPrmPrint(&prm);
    }
    EXPECT_EQ(onOneLine(testing::internal::GetCapturedStdout(), "volCheckPrm->"),
              "volCheckPrm->maxVolTh=150 minVolTh=8.5 satAmpRatio=3 satSampleCountRatioTh=4 maxVolTh=140 "
              "minVolTh=30 satAmpRatio=0.95 satSampleCountRatioTh=0.005 "
              "(line N, file=../../../../c/lib/audio/audio)\n");

    const Ints wave = made<int>(1600, {{0, 800, 145}}); // the file's level, else defaults
    EXPECT_EQ(cAudio::waveVolumeCheck(wave.data(), 1600, "check.txt"), 1);
    std::ofstream("check.txt") << "MaxVolTh=3\n";
    EXPECT_EQ(fatalMessage([&] { cAudio::volCheckPrmRead("check.txt", &prm); }),
              "Error in parsing check.txt, unknown key = MaxVolTh (line N in ../../../../c/lib/audio/audio)");
}

} // namespace
