#include "support/audio.hpp"

#include <fstream>
#include <sstream>

namespace {

const std::string paramFile = "pitchParam.txt";

/// Writes a parameter file; returns its name.
const char* file(const std::string& content) {
    std::ofstream(paramFile) << content;
    return paramFile.c_str();
}

std::string printed(const PTPARAM& p) {
    testing::internal::CaptureStdout();
    cAudio::ptParamPrint(&p);
    return onOneLine(testing::internal::GetCapturedStdout(), "ptParam->");
}

const std::string afterTheLast = " (line N, file=../../../../c/lib/audio/audio)\n";

TEST(PitchParam, DefaultsFollowRateAndType) {
    struct {
        int fs;
        PF_TYPE pfType;
        int frameRate;
        const char* layout;
        const char* path;
    } const cases[] = {{16000, PF_AMDF, 100, "frameSize=640 overlap=480 pfLen=320 ",
                        "dpMethod=2 dpPosDiffOrder=2 dpUseLocalOptim=1 pfWeight=12800 indexDiffWeight=700 "},
                       {16000, PF_ACF, 100, "frameSize=640 overlap=480 pfLen=320 ",
                        "dpMethod=1 dpPosDiffOrder=2 dpUseLocalOptim=0 pfWeight=1 indexDiffWeight=6 "},
                       {8000, PF_ACF, 31, "frameSize=256 overlap=0 pfLen=128 ",
                        "dpMethod=2 dpPosDiffOrder=1 dpUseLocalOptim=1 pfWeight=4 indexDiffWeight=388 "},
                       {11025, PF_AMDF, 31, "frameSize=354 overlap=0 pfLen=177 ", "dpMethod=1 "},
                       {INT_MAX, PF_AMDF, 31, "frameSize=68719480 overlap=0 pfLen=34359740 ",
                        "dpMethod=1 dpPosDiffOrder=1 dpUseLocalOptim=1 pfWeight=1 indexDiffWeight=1 "}};
    for (const auto& [fs, pfType, frameRate, layout, path] : cases) {
        const PTPARAM p = trackingDefaults(fs, pfType);
        const std::string dump = printed(p);
        EXPECT_LT(dump.find(layout), dump.find(path)) << layout << dump;
        EXPECT_LT(dump.find(path), dump.size()) << path << dump;
        EXPECT_EQ(p.frameRate, frameRate) << dump;
        EXPECT_EQ(p.useClarityWeight, pfType == PF_ACF) << dump;
    }
    PTPARAM p;
    p.minIndex = 7;
    p.maxIndex = 7;
    cAudio::ptParamSet(&p, 40.0F, 11025, 9, PF_ACF);
    EXPECT_EQ(std::pair(p.minIndex, p.maxIndex), std::pair(0, 0));
    EXPECT_EQ(printed(p),
              "ptParam->fs=11025 nbits=9 pfType=1 frameSize=353 overlap=77 pfLen=177 ppcNum=10 "
              "pitchRangeMax=24 pitchDiffMax=5 minPitch=30 maxPitch=84 maxMedianPitchDiff=20 dpMethod=1 "
              "dpPosDiffOrder=1 dpUseLocalOptim=1 pfWeight=1 indexDiffWeight=1 useVolThreshold=1 "
              "useClarityThreshold=1 clarityRatio=0.6 medianFilterOrder=5 cutLeadingTrailingZero=0" +
                  afterTheLast);
    EXPECT_EQ(fatalMessage([&] { cAudio::ptParamSet(&p, 8000, 8, PF_TYPE{2}, nullptr); }),
              "Unknown pfType=2 (line N in ../../../../c/lib/audio/audio)!\n");
}

TEST(PitchParam, EveryKeyIsThatOfItsField) {
    const std::string pairs =
        "fs=44100 nbits=9 pfType=1 frameSize=1601 overlap=50 pfLen=120 ppcNum=7 pitchRangeMax=12.5 "
        "pitchDiffMax=4.5 minPitch=31.5 maxPitch=83.5 maxMedianPitchDiff=19.5 dpMethod=3 dpPosDiffOrder=4 "
        "dpUseLocalOptim=2 pfWeight=1.5 indexDiffWeight=2.5 useVolThreshold=5 useClarityThreshold=6 "
        "clarityRatio=0.5 medianFilterOrder=11 cutLeadingTrailingZero=8";
    std::string lines = pairs;
    std::replace(lines.begin(), lines.end(), ' ', '\n');
    PTPARAM p;
    cAudio::ptParamSet(&p, 11025, 9, PF_AMDF, file(lines));
    EXPECT_EQ(printed(p), "ptParam->" + pairs + afterTheLast);

    p.halfOfNbits = true;
    cAudio::ptParamWrite(&p, paramFile.c_str());
    std::stringstream written;
    written << std::ifstream(paramFile).rdbuf();
    EXPECT_EQ(
        written.str(),
        "fs=44100\nnbits=9\nframeSize=1601\noverlap=50\nminPitch=31.500000\nmaxPitch=83.500000\n"
        "pitchRangeMax=12.500000\nppcNum=7\npfWeight=1.500000\nindexDiffWeight=2.500000\ndpMethod=3\n"
        "dpPosDiffOrder=4\ndpUseLocalOptim=2\nmaxMedianPitchDiff=19.500000\nmaxAmdfLocalMinCount=27\n"
        "minAmdfRange=10.000000\nhalfOfFs=0\nhalfOfNbits=1\nuseVolThreshold=5\ncutLeadingTrailingZero=8\n");
}

TEST(PitchParam, AFileOverridesTheDefaults) {
    PTPARAM p;
    const ConsoleCapture console;
    cAudio::ptParamSet(&p, 8000, 8, PF_AMDF, file("frameSize=256\ndpUseLocalOptim=0.9\nppcNum=-99999999999"));
    EXPECT_EQ(console.text(), "");
    EXPECT_EQ(p.dpUseLocalOptim, 0);
    EXPECT_EQ(p.ppcNum, INT_MIN);
    cAudio::ptParamSet(&p, 8000, 8, PF_AMDF, file("frameSize=255\noverlap=255"));
    EXPECT_EQ(p.pfLen, 128);
    EXPECT_EQ(p.frameRate, 0);
    EXPECT_EQ(console.text(), "Warning: frameSize too small! (frameSize=255, frameDuration=31.875 ms < "
                              "minFrameDuration=32 ms)\n");
    EXPECT_EQ(fatalMessage([&] { cAudio::ptParamRead(file("ppcNum=3\nfps=1\nppcNum=4"), &p); }),
              "Error in parsing " + paramFile +
                  ", unknown key = fps (line N in ../../../../c/lib/audio/audio)");
    EXPECT_EQ(p.ppcNum, 3);
}

} // namespace
