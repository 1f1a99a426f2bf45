#include "audio/endPoint/made.hpp"

namespace {

/// A stretch of sound that shows in frames first to last of the character detector.
Piece touching(int first, int last, double amplitude = 1) {
    return {170 * first + 86, 170 * (last + 1), amplitude};
}

TEST(Characters, CoresWidenAndMerge) {
    const int waveLen = 170 * 81;
    const Text warning = "Warning: some characters are not recorded due to limited length!\n";
    const Piece hum = {0, waveLen, 0.035}; // 29 dB below the rest
    const struct {
        Text what;
        Pieces pieces;
        Text start, end;
        Text console = "";
        int fs = 8000;
    } cases[] = {
        {"11 frames, not 10", {touching(10, 20), touching(40, 49)}, "1700 -1", "3655 -1", "", 17599},
        {"silence parts them", {touching(10, 30), touching(32, 50)}, "1700 5440", "5355 8755"},
        {"21 dB below", {touching(10, 30), touching(40, 50, 0.09)}, "1700 -1", "5355 -1"},
        {"one stretch", {hum, touching(9, 22), touching(26, 40)}, "0 -1", "13685 -1"},
        {"few slots", {touching(1, 2), touching(4, 9), touching(12, 20)}, "680 -1", "1785 -1", warning},
        {"a constant", {{0, waveLen, 3, 1 << 20}}, "0 -1", "13685 -1"},
        {"not a number", {touching(10, 30), {5000, 5001, notANumber}}, "-1 -1", "-1 -1"},
    };
    for (const auto& [what, pieces, starts, ends, printed, fs] : cases) {
        Doubles wave = made<double>(waveLen, pieces);
        double start[2], end[2];
        const ConsoleCapture console;
        const int count = cAudio::charEndPointDetect(wave.data(), waveLen, fs, start, end, 2);
        EXPECT_EQ(text(Doubles{start[0], start[1]}), starts) << what;
        EXPECT_EQ(text(Doubles{end[0], end[1]}), ends) << what;
        EXPECT_EQ(count, 2 - std::count(start, start + 2, -1)) << what;
        EXPECT_EQ(console.text(), printed) << what;
    }
}

TEST(Characters, ASentenceIsFromTheFirstToTheLast) {
    Doubles wave = made<double>(8000, {touching(5, 15), touching(30, 40)});
    int first = 7;
    int last = 7;
    cAudio::sentenceEndPointDetect(wave.data(), 8000, 8000, &first, &last);
    EXPECT_EQ(first, 850);
    EXPECT_EQ(last, 7055);
    cAudio::sentenceEndPointDetect(wave.data(), 255, 8000, &first, &last);
    EXPECT_EQ(first, -1);
    EXPECT_EQ(last, -1);
}

TEST(Characters, WaveLosesItsMeanAndIndicesArePacked) {
    Doubles wave{3, 5, 4, 4};
    cAudio::charEndPointDetect(wave.data(), 4, 8000, nullptr, nullptr, INT_MIN);
    EXPECT_EQ(text(wave), "-1 1 0 0");
    Doubles list{-1, 4, -1, -1, 2, 9};
    packCharIndex(list.data(), 5);
    EXPECT_EQ(text(list), "4 2 -1 -1 -1 9");
}

} // namespace
