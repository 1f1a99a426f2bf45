#include "support/audio.hpp"

#include <fstream>
#include <sstream>

namespace {

std::string file(const std::string& content) {
    std::string name = testing::TempDir() + "pitchParam.txt";
    std::ofstream(name) << content;
    return name;
}

/// What the defaults derive, as text.
std::string derived(const PTPARAM& p) {
    std::stringstream text;
    text << p.frameSize << ' ' << p.overlap << ' ' << p.pfLen << ' ' << p.frameRate << ' ' << p.pfWeight
         << ' ' << p.indexDiffWeight << ' ' << p.dpMethod << p.dpPosDiffOrder << p.dpUseLocalOptim
         << p.useClarityWeight << ' ' << p.minAmdfRange;
    return text.str();
}

TEST(PitchParam, DefaultsByRateAndType) {
    const ConsoleCapture console;
    PTPARAM p;
    const std::tuple<int, int, PF_TYPE, const char*> cases[] = {
        {16000, 16, PF_AMDF, "640 480 320 100 12800 700 2210 1280"},
        {16000, 16, PF_ACF, "640 480 320 100 1 6 1201 1280"},
        {8000, 8, PF_ACF, "256 0 128 31 4 388 2111 5"},
        {11025, 8, PF_ACF, "354 0 177 31 1 1 1111 5"},
        {INT_MAX, 8, PF_AMDF, "68719480 0 34359740 31 1 1 1110 5"}};
    for (const auto& [fs, nbits, pfType, expected] : cases) {
        cAudio::ptParamSet(&p, fs, nbits, pfType, nullptr);
        EXPECT_EQ(derived(p), expected) << fs << ' ' << pfType;
    }
    cAudio::ptParamSet(&p, 100.0F, 8000, 8, PF_ACF);
    EXPECT_EQ(derived(p), "256 176 128 31 4 388 2111 5");
    EXPECT_EQ(console.text(), "");
}

TEST(PitchParam, FileOverridesAndErrors) {
    const std::string name =
        file("% tuned\nframeSize = 200 % short\nno pair\nmaxPitch=80=90\ndpUseLocalOptim=0.9\r\n"
             "dpMethod=2.9\nminPitch=31\nminPitch=32\nppcNum=-99999999999\n");
    PTPARAM p;
    {
        const ConsoleCapture console;
        cAudio::ptParamSet(&p, 8000, 8, PF_AMDF, name.c_str());
        EXPECT_EQ(console.text(), "Warning: frameSize too small! (frameSize=200, frameDuration=25 ms < "
                                  "minFrameDuration=32 ms)\n");
    }
    EXPECT_EQ(derived(p), "200 0 128 40 1 1 2100 5");
    EXPECT_EQ(std::tuple(p.minPitch, p.maxPitch, p.ppcNum), std::tuple(32.0F, 80.0F, INT_MIN));
    EXPECT_EQ(fatalMessage([&] { cAudio::ptParamRead(file("ppcNum=3\n=1\nppcNum=4").c_str(), &p); }),
              "Error in parsing " + name + ", unknown key =  (line N in ../../../../c/lib/audio/audio)");
    EXPECT_EQ(p.ppcNum, 3);
    EXPECT_EQ(fatalMessage([&] { cAudio::ptParamSet(&p, 8000, 8, static_cast<PF_TYPE>(2), nullptr); }),
              "Unknown pfType=2 (line N in ../../../../c/lib/audio/audio)!\n");
}

TEST(PitchParam, IsWrittenAndPrinted) {
    PTPARAM p;
    cAudio::ptParamSet(&p, 8000, 8, PF_AMDF, nullptr);
    const std::string name = file("");
    cAudio::ptParamWrite(&p, name.c_str());
    std::stringstream text;
    text << std::ifstream(name).rdbuf();
    EXPECT_EQ(
        text.str(),
        "fs=8000\nnbits=8\nframeSize=256\noverlap=0\nminPitch=30.000000\nmaxPitch=84.000000\n"
        "pitchRangeMax=24.000000\nppcNum=10\npfWeight=1.000000\nindexDiffWeight=1.000000\ndpMethod=1\n"
        "dpPosDiffOrder=1\ndpUseLocalOptim=1\nmaxMedianPitchDiff=20.000000\nmaxAmdfLocalMinCount=20\n"
        "minAmdfRange=5.000000\nhalfOfFs=0\nhalfOfNbits=0\nuseVolThreshold=1\ncutLeadingTrailingZero=0\n");

    testing::internal::CaptureStdout();
    cAudio::ptParamPrint(&p);
    EXPECT_EQ(
        onOneLine(testing::internal::GetCapturedStdout(), "ptParam->"),
        "ptParam->fs=8000 nbits=8 pfType=0 frameSize=256 overlap=0 pfLen=128 ppcNum=10 pitchRangeMax=24 "
        "pitchDiffMax=5 minPitch=30 maxPitch=84 maxMedianPitchDiff=20 dpMethod=1 dpPosDiffOrder=1 "
        "dpUseLocalOptim=1 pfWeight=1 indexDiffWeight=1 useVolThreshold=1 useClarityThreshold=1 "
        "clarityRatio=0.6 medianFilterOrder=5 cutLeadingTrailingZero=0 "
        "(line N, file=../../../../c/lib/audio/audio)\n");
}

} // namespace
