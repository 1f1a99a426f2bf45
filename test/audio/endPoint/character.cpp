#include "audio/endPoint/made.hpp"

namespace {

/// A stretch of sound that shows in frames first to last of the character detector.
Piece touching(int first, int last, double amplitude = 1.0) {
    return {170 * first + 86, 170 * (last + 1), amplitude};
}

TEST(Characters, CoresWidenAndMerge) {
    const char* warning = "Warning: some characters are not recorded due to limited length!\n";
    const Piece hum = {0, 170 * 81, 0.056}; // 25 dB below the rest
    const std::tuple<Text, Pieces, int, int, Doubles, std::string> cases[] = {
        {"11 frames, not 10", {touching(10, 20), touching(40, 49)}, 16000, 5, {10, 20}, ""},
        {"silence parts them", {touching(10, 30), touching(32, 50)}, 16000, 5, {10, 30, 32, 50}, ""},
        {"one stretch", {hum, touching(9, 22), touching(26, 40), touching(45, 60)}, 16000, 5, {0, 79}, ""},
        {"few slots", {touching(5, 6), touching(10, 15), touching(32, 50)}, 8000, 2, {10, 15}, warning},
        {"no slot", {touching(10, 30)}, 16000, 0, {}, warning},
        {"a constant", {{0, 170 * 81, 3.0, 1 << 20}}, 16000, 5, {0, 79}, ""},
        {"not a number", {touching(10, 30), {5000, 5001, notANumber}}, 16000, 5, {}, ""},
    };
    for (const auto& [what, pieces, fs, slots, frames, text] : cases) {
        Doubles wave = made<double>(170 * 81, pieces);
        Doubles start(size_t(slots), 7.0), end(start);
        const ConsoleCapture console;
        const int count =
            cAudio::charEndPointDetect(wave.data(), lengthOf(wave), fs, start.data(), end.data(), slots);
        EXPECT_EQ(console.text(), text) << what;
        ASSERT_EQ(2 * count, lengthOf(frames)) << what;
        for (std::size_t i = 0; i < start.size(); ++i) {
            const bool used = 2 * i < frames.size();
            EXPECT_EQ(start[i], used ? 170 * frames[2 * i] : -1) << what;
            EXPECT_EQ(end[i], used ? 170 * frames[2 * i + 1] + 255 : -1) << what;
        }
        int first = 7, last = 7;
        cAudio::sentenceEndPointDetect(wave.data(), lengthOf(wave), fs, &first, &last);
        if (!text.empty()) continue;
        EXPECT_EQ(first, frames.empty() ? -1 : 170 * frames.front()) << what;
        EXPECT_EQ(last, frames.empty() ? -1 : 170 * frames.back() + 255) << what;
    }
    Doubles wave{3, 5, 4, 4};
    cAudio::charEndPointDetect(wave.data(), 4, 8000, nullptr, nullptr, INT_MIN);
    EXPECT_EQ(wave, (Doubles{-1, 1, 0, 0}));
    Doubles list{-1, 4, -1, -1, 2, 9};
    packCharIndex(list.data(), 5);
    EXPECT_EQ(list, (Doubles{4, 2, -1, -1, -1, 9}));
}

} // namespace
