#include "audio/endPoint/made.hpp"

namespace {

TEST(Handset, VoicedSpanWithoutBlips) {
    const int hop = 128;
    const int waveLen = hop * 101;
    const auto sound = [](int first, int last) {
        return Piece{hop * (first + 1), hop * (last + 1), 1.0, 64};
    };
    const auto blip = [](int frame) { return Piece{hop * frame + 64, hop * frame + 192, 0.4, 64}; };
    const Piece voice = sound(70, 90);             // shows in these frames
    const Piece hiss = {hop * 50, hop * 56, 0.01}; // has the largest count
    const std::tuple<Text, Pieces, double, double> cases[] = {
        {"under way at 0.2 s", {sound(5, 30), voice}, 70, 90},
        {"from a frame later on", {sound(12, 30), voice}, 12, 90},
        {"a second blip stays", {blip(21), blip(31), voice}, 31, 90},
        {"a blip at the end of the first second", {blip(62), voice}, 70, 90},
        {"after it", {blip(63), voice}, 63, 90},
        {"a second double blip stays", {sound(30, 31), sound(40, 41), voice}, 40, 90},
        {"loud hiss", {{hop * 30, hop * 40, 1.0}, voice}, 70, 90},
        {"the recording's end", {sound(80, 99)}, 80, 99},
        {"nothing: the fallback", {}, 2, 50},
        {"not finite", {{3000, 3001, notANumber}, {3500, 3501, 1 / 0.0}, voice}, 70, 90},
    };
    for (auto [what, pieces, start, end] : cases) {
        pieces.insert(pieces.begin(), hiss);
        Doubles wave = made<double>(waveLen, pieces);
        double endPoint[] = {2, 50};
        cAudio::endPointDetect4quokka(wave.data(), waveLen, 8000, 16, endPoint);
        EXPECT_EQ(endPoint[0], std::max(0.0, hop * start - 384)) << what;
        EXPECT_EQ(endPoint[1], std::min(waveLen - 1.0, hop * end + 640)) << what;
        EXPECT_EQ(wave[hop * 50 + 1], -327.68) << "rescaled";
    }
    Doubles wave = made<double>(waveLen, {hiss, voice});
    for (const int fs : {INT_MIN, 0, INT_MAX})
        for (const int length : {INT_MIN, 255, 256, waveLen}) {
            double endPoint[] = {notANumber, 1 / 0.0};
            cAudio::endPointDetect4quokka(wave.data(), length, fs, fs, endPoint);
            EXPECT_EQ(endPoint[1], length - 1.0);
        }
}

} // namespace
