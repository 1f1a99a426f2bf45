#include "audio/audio.hpp"
#include "support/console.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

namespace {

std::string path(const char* content) {
    const std::string name = testing::TempDir() + "pitchParam.txt";
    std::ofstream(name) << content;
    return name;
}

TEST(PitchParam, DefaultsByRateAndType) {
    const struct {
        int fs, nbits;
        PF_TYPE pfType;
        int frameSize, overlap, pfLen, frameRate;
        float pfWeight, indexDiffWeight;
        int dpMethod, dpPosDiffOrder, dpUseLocalOptim, useClarityWeight;
        float minAmdfRange;
    } cases[] = {
        {16000, 16, PF_AMDF, 640, 480, 320, 100, 12800, 700, 2, 2, 1, 0, 1280},
        {16000, 8, PF_ACF, 640, 480, 320, 100, 1, 6, 1, 2, 0, 1, 5},
        {8000, 8, PF_ACF, 256, 0, 128, 31, 4, 388, 2, 1, 1, 1, 5},
        {8000, 8, PF_AMDF, 256, 0, 128, 31, 1, 1, 1, 1, 1, 0, 5},
        {11025, 8, PF_ACF, 354, 0, 177, 31, 1, 1, 1, 1, 1, 1, 5},
        {44100, 16, PF_AMDF, 1412, 0, 706, 31, 1, 1, 1, 1, 1, 0, 1280},
        {0, 16, PF_AMDF, 0, 0, 0, 0, 1, 1, 1, 1, 1, 0, 1280},
        {INT_MAX, 8, PF_AMDF, 68719480, 0, 34359740, 31, 1, 1, 1, 1, 1, 0, 5},
    };
    for (const auto& c : cases) {
        const ConsoleCapture console;
        PTPARAM p;
        cAudio::ptParamSet(&p, c.fs, c.nbits, c.pfType, nullptr);
        EXPECT_EQ(console.text(), "");
        const auto tied = [](const auto& x) {
            return std::tuple(x.frameSize, x.overlap, x.pfLen, x.frameRate, x.pfWeight, x.indexDiffWeight,
                              x.dpMethod, x.dpPosDiffOrder, x.dpUseLocalOptim, x.useClarityWeight,
                              x.minAmdfRange);
        };
        EXPECT_EQ(tied(p), tied(c)) << c.fs << ' ' << c.pfType;
    }
    EXPECT_EQ(fatalMessage([] {
                  PTPARAM p;
                  cAudio::ptParamSet(&p, 8000, 8, static_cast<PF_TYPE>(2), nullptr);
              }),
              "Unknown pfType=2 (line N in ../../../../c/lib/audio/audio)!\n");
    PTPARAM p;
    cAudio::ptParamSet(&p, 100.0F, 8000, 8, PF_ACF);
    EXPECT_EQ(std::tuple(p.frameSize, p.overlap, p.pfLen, p.frameRate), std::tuple(256, 176, 128, 31));
}

TEST(PitchParam, FileOverridesAndIsChecked) {
    const ConsoleCapture console;
    PTPARAM p;
    cAudio::ptParamSet(
        &p, 8000, 8, PF_AMDF,
        path("% tuned\nframeSize = 200 % short\nno pair\nmaxPitch=80=90\ndpUseLocalOptim=0.9\r\n"
             "dpMethod=2.9\nminPitch=31\nminPitch=32\noverlap=200\nfs=99999999999\npfType=7\n")
            .c_str());
    EXPECT_EQ(console.text(), "Warning: frameSize too small! (frameSize=200, frameDuration=9.31323e-05 ms < "
                              "minFrameDuration=32 ms)\n");
    EXPECT_EQ(std::tuple(p.frameSize, p.maxPitch, p.dpUseLocalOptim, p.dpMethod, p.minPitch, p.pfLen, p.fs,
                         p.frameRate, static_cast<int>(p.pfType)),
              std::tuple(200, 80.0F, 0, 2, 32.0F, 128, INT_MAX, 0, 7));

    const std::string longKey(5000, 'k');
    for (const std::string& key : {std::string("ppcnum"), std::string(), longKey}) {
        const std::string name = path(("ppcNum=3\n" + key + "=1\nppcNum=4").c_str());
        const std::string message = "Error in parsing " + name + ", unknown key = " + key +
                                    " (line N in ../../../../c/lib/audio/audio)";
        EXPECT_EQ(fatalMessage([&] { cAudio::ptParamRead(name.c_str(), &p); }), message.substr(0, 999));
        EXPECT_EQ(p.ppcNum, 3);
    }
    EXPECT_NE(fatalMessage([&] { cAudio::ptParamWrite(&p, "/no/such/file"); }), "");
}

TEST(PitchParam, IsWrittenAndPrinted) {
    PTPARAM p;
    cAudio::ptParamSet(&p, 8000, 8, PF_AMDF, nullptr);
    const std::string name = path("");
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
    std::stringstream printed(testing::internal::GetCapturedStdout());
    const char* values[] = {"fs=8000",
                            "nbits=8",
                            "pfType=0",
                            "frameSize=256",
                            "overlap=0",
                            "pfLen=128",
                            "ppcNum=10",
                            "pitchRangeMax=24",
                            "pitchDiffMax=5",
                            "minPitch=30",
                            "maxPitch=84",
                            "maxMedianPitchDiff=20",
                            "dpMethod=1",
                            "dpPosDiffOrder=1",
                            "dpUseLocalOptim=1",
                            "pfWeight=1",
                            "indexDiffWeight=1",
                            "useVolThreshold=1",
                            "useClarityThreshold=1",
                            "clarityRatio=0.6",
                            "medianFilterOrder=5",
                            "cutLeadingTrailingZero=0"};
    std::string line;
    for (const char* value : values) {
        std::getline(printed, line);
        EXPECT_EQ(line.substr(0, line.find("(line=")), std::string("ptParam->") + value + " ");
        EXPECT_NE(line.find(", file=../../../../c/lib/audio/audio)"), std::string::npos);
    }
    EXPECT_FALSE(std::getline(printed, line));
}

} // namespace
