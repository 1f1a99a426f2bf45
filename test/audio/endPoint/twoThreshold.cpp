// The detectors that frame ints by themselves: two thresholds, and volume with zero crossings.
#include "audio/endPoint/made.hpp"

#include <filesystem>
#include <fstream>

namespace {

TEST(TwoThreshold, SoundReachesAsFarAsTheLowThresholdIsReached) {
    std::filesystem::current_path(testing::TempDir());
    const std::tuple<Ints, epdStruct, Ints, std::string> cases[] = {
        {{0, 120, 300, 120, 50}, {notANumber, 3.9, 2.1}, {0, 1, 1, 1, 0}, "100 150"},
        {{6, 6, 7, 9, 5, 7, 4, 9, 8}, {0, 2, 1}, {1, 1, 1, 1, 0, 0, 0, 1, 1}, "6 9"},
        {{5, 7, 7, 9, 5, 7, 4, 9, 8}, {0, 1, 2}, {0, 1, 1, 1, 0, 1, 0, 1, 1}, "9 6"},
        {{INT_MIN, 0, INT_MAX}, {0, notANumber, 0.5}, {0, 0, 1}, "2147483647 2147483647"},
    };
    for (const auto& [volume, epd, expected, thresholds] : cases) {
        Ints voiced(volume.size(), -1);
        const ConsoleCapture console;
        cAudio::volume2voiced(volume.data(), lengthOf(volume), 0, &epd, voiced.data());
        EXPECT_EQ(voiced, expected) << thresholds;
        std::string low, high;
        std::ifstream("volTh1.txt") >> low;
        std::ifstream("volTh2.txt") >> high;
        EXPECT_EQ(low + ' ' + high, thresholds);
        const auto [least, most] = std::minmax_element(volume.begin(), volume.end());
        EXPECT_EQ(console.text(), "volTh1=" + low + ", volTh2=" + high + ", maxVol=" + std::to_string(*most) +
                                      ", minVol=" + std::to_string(*least) + "\n");
    }
    cAudio::volume2voiced(nullptr, 0, 0, nullptr, nullptr);
}

TEST(EpdByVol2, PairsOfFramesFromThresholdsOfTheRecording) {
    const auto frames = [](int first, int last, double amplitude) { // covers these frames of 512 samples
        return Piece{320 * first, 320 * last + 512, amplitude};
    };
    const auto found = [](const Pieces& pieces) {
        const Ints wave = made<int>(320 * 100, pieces);
        Ints endPoint(100, -1);
        endPoint.resize(size_t(cAudio::epdByVol2(wave.data(), lengthOf(wave), 0, endPoint.data(), 0)));
        return endPoint;
    };
    // A loud stretch, which shows in frames 9 to 31, and one that stands alone or is joined to it, as loud as
    // the threshold. High is twice the largest volume / 128, 20 times the smallest, or twice the largest / 8;
    // low is half of it.
    const std::tuple<double, double, int, Ints> cases[] = {{0, 40, 50, {9, 31, 50, 60}},
                                                           {1, 20, 50, {9, 31, 50, 60}},
                                                           {100, 640, 50, {9, 31, 50, 60}},
                                                           {100, 320, 30, {9, 60}}};
    for (const auto& [floor, probe, first, expected] : cases)
        for (const int below : {0, 1})
            EXPECT_EQ(found({{0, 32000, floor}, frames(first, 60, probe - below), frames(10, 30, 2560)}),
                      below ? Ints({9, 31}) : expected)
                << floor << ' ' << probe;
    EXPECT_EQ(found({}), (Ints{0, 98})); // in silence both thresholds are 0, and reached
    EXPECT_EQ(cAudio::epdByVol2(nullptr, 511, 0, nullptr, 0), 0);
}

TEST(VolumeThreshold, RoundedMeanInsideItsRange) {
    const int cases[][4] = {{127, 128, 2, 128}, {127, 127, 2, 512}, {2561, 2561, 2, 512},
                            {2000, 0, 0, 512},  {-300, 0, -1, 300}, {INT_MAX, INT_MAX, 1 << 21, 2048}};
    for (const auto& [first, second, d, threshold] : cases)
        EXPECT_EQ(cAudio::getVolumeThreshold(Ints{first, second}.data(), 0, 2, d), threshold) << first;
    EXPECT_EQ(cAudio::getVolumeThreshold(nullptr, 0, INT_MIN, 1), 512);
}

TEST(EpdByVolZcr, WidensByVolumeAndThenByCrossings) {
    const Piece loud = {4000, 6000, 800, 40};
    const std::tuple<Text, int, Pieces, int, int> cases[] = {
        {"no whole frame", 319, {{0, 319, 9}}, 159, 79},
        {"silence", 320 + 80 * 4, {}, 80 * 5 + 159, 79},
        {"the last frame alone", 1120, {{1040, 1120, 100, 1000}}, 959, 959},
        {"a sixteenth of it before", 8000, {{3000, 4000, 50, 160}, loud}, 3919, 6079},
        {"a little more than that", 8000, {{3000, 4000, 51, 160}, loud}, 3199, 6079},
        {"hiss before", 8000, {{1600, 4000, 1}, loud}, 1599, 6079}};
    for (const auto& [what, waveLen, pieces, first, last] : cases) {
        const Ints wave = made<int>(waveLen, pieces);
        int start = -1, end = -1;
        cAudio::epdByVolZcr(wave.data(), waveLen, 0, &start, &end);
        EXPECT_EQ(std::pair(start, end), std::pair(first, last)) << what;
    }
}

} // namespace
