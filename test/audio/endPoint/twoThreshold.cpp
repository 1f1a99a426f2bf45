// The detectors that frame ints by themselves: two thresholds, and volume with zero crossings.
#include "audio/endPoint/made.hpp"

#include <fstream>

namespace {

TEST(TwoThreshold, SoundReachesAsFarAsTheLowThresholdIsReached) {
    const struct {
        Ints volume;
        double lowRatio, highRatio;
        Text voiced, console;
    } cases[] = {
        {{0, 120, 300, 120}, 3.9, 2.9, "0 1 1 1", "volTh1=100, volTh2=150, maxVol=300, minVol=0\n"},
        {{INT_MIN, INT_MAX},
         notANumber,
         0.5,
         "0 1",
         "volTh1=2147483647, volTh2=2147483647, maxVol=2147483647, minVol=-2147483648\n"},
        {{6, 7, 9, 5, 7, 4, 8, 9}, 2, 1, "1 1 1 0 0 0 1 1", "volTh1=6, volTh2=9, maxVol=9, minVol=4\n"},
    };
    for (const auto& [volume, lowRatio, highRatio, marks, printed] : cases) {
        const epdStruct epd{0, lowRatio, highRatio};
        Ints voiced(volume.size(), -1);
        const ConsoleCapture console;
        cAudio::volume2voiced(volume.data(), lengthOf(volume), 0, &epd, voiced.data());
        EXPECT_EQ(text(voiced), marks) << printed;
        EXPECT_EQ(console.text(), printed);
    }
    int low = -1;
    int high = -1;
    std::ifstream("volTh1.txt") >> low;
    std::ifstream("volTh2.txt") >> high;
    EXPECT_EQ(low, 6);
    EXPECT_EQ(high, 9);
}

/// Covers these frames of 512 samples.
Piece frames(int first, int last, double amplitude) {
    return {320 * first, 320 * last + 512, amplitude};
}

std::string foundByTwo(const Pieces& pieces) {
    const Ints wave = made<int>(32000, pieces);
    Ints endPoint(100);
    endPoint.resize(size_t(cAudio::epdByVol2(wave.data(), 32000, 0, endPoint.data(), 0)));
    return text(endPoint);
}

TEST(EpdByVol2, PairsOfFramesFromThresholdsOfTheRecording) {
    // A loud stretch, which shows in frames 9 to 31, and one that stands alone or is joined to it, as loud as
    // the threshold. High is twice the largest volume / 128, 20 times the smallest, or twice the largest / 8;
    // low is half of it.
    const struct {
        double floor, level;
        int first;
        Text found;
    } cases[] = {{0, 40, 50, "9 31 50 60"},
                 {1, 20, 50, "9 31 50 60"},
                 {40, 640, 50, "9 31 50 60"},
                 {100, 320, 30, "9 60"}};
    for (const auto& [floor, level, first, found] : cases) {
        const Piece all{0, 32000, floor};
        const Piece loud = frames(10, 30, 2560);
        EXPECT_EQ(foundByTwo({all, frames(first, 60, level), loud}), found) << level;
        EXPECT_EQ(foundByTwo({all, frames(first, 60, level - 1), loud}), "9 31") << level;
    }
    EXPECT_EQ(foundByTwo({}), "0 98") << "in silence both thresholds are 0, and reached";
    EXPECT_EQ(cAudio::epdByVol2(nullptr, 511, 0, nullptr, 0), 0);
}

TEST(VolumeThreshold, IsTheRoundedMeanInsideItsRange) {
    const struct {
        int first, second, divisor, threshold;
    } cases[] = {{127, 128, 2, 128},   {127, 127, 2, 512}, {2560, 2560, 2, 2560},
                 {2561, 2561, 2, 512}, {2000, 0, 0, 512},  {INT_MAX, INT_MAX, 1 << 21, 2048}};
    for (const auto& [first, second, divisor, threshold] : cases) {
        const int volume[] = {first, second};
        EXPECT_EQ(cAudio::getVolumeThreshold(volume, 0, 2, divisor), threshold) << first;
    }
}

TEST(EpdByVolZcr, WidensByVolumeAndThenByCrossings) {
    const Piece loud = {4000, 6000, 800, 40};
    const Piece fullHiss = {7000, 7600, 1};
    const struct {
        Text what;
        Pieces pieces;
        Text span;
        int waveLen = 8000;
    } cases[] = {{"no whole frame", {{0, 319, 9}}, "159 79", 319},
                 {"the last frame alone", {{1040, 1120, 100, 1000}}, "959 959", 1120},
                 {"an eighth, apart", {{1600, 2400, 100, 160}, loud}, "3919 6079"},
                 {"a sixteenth, before", {{3000, 4000, 50, 160}, loud}, "3919 6079"},
                 {"a little more, everywhere", {{0, 8000, 51, 160}, loud}, "159 7839"},
                 {"crossings: 127 of 319", {{1600, 4000, 1, 5}, loud, fullHiss}, "3919 6079"},
                 {"91 of 213", {{1600, 4000, 1, 7}, loud, {7000, 7600, 1, 3}}, "1759 6079"}};
    for (const auto& [what, pieces, span, waveLen] : cases) {
        const Ints wave = made<int>(waveLen, pieces);
        Ints found(2);
        cAudio::epdByVolZcr(wave.data(), waveLen, 0, &found[0], &found[1]);
        EXPECT_EQ(text(found), span) << what;
    }
}

} // namespace
