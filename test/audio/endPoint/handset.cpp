#include "audio/endPoint/made.hpp"

namespace {

constexpr int hop = 128;

/// Shows in these frames.
Piece sound(int first, int last, double amplitude = 1, int period = 64) {
    return {hop * (first + 1), hop * (last + 1), amplitude, period};
}

Piece blip(int frame) {
    return {hop * frame + 64, hop * frame + 192, 0.4, 64};
}

TEST(Handset, FindsTheVoicedSpanWithoutBlips) {
    const Piece hiss = sound(23, 27, 0.01, 2); // has the largest count
    const Piece voice = sound(70, 90);
    const struct {
        Text what;
        Pieces pieces;
        double start = 70, end = 90;
        int frameNum = 100;
    } cases[] = {
        {"from 0.2 s on", {sound(12, 20), voice}, 12},
        {"loud in the last frame before", {{hop * 10, hop * 11, 20, 64}, voice}, 2, 50},
        {"a blip at the end of the first second", {blip(62), voice}},
        {"after it", {blip(63), voice}, 63},
        {"a second double blip stays", {sound(30, 31), sound(40, 41), voice}, 40},
        {"a blip before the last frame", {sound(11, 20), blip(38)}, 2, 50, 40},
        {"in the last frame", {sound(11, 20), blip(39)}, 39, 39, 40},
        {"a share of 0.14", {sound(30, 40, 0.14), voice}},
        {"a share of 0.16, in whole frames", {sound(30, 40, 0.16), voice}, 31},
        {"too much hiss", {sound(28, 41, 1, 2), sound(29, 40, 1, 5), voice}},
        {"less of it", {sound(30, 40, 1, 6), voice}, 30},
        {"not finite", {{3000, 3001, notANumber}, {3500, 3501, 1 / 0.0}, voice}},
        {"nothing: the fallback", {}, 2, 50},
    };
    for (const auto& [what, pieces, start, end, frameNum] : cases) {
        const int waveLen = hop * (frameNum + 1);
        Pieces all{hiss};
        all.insert(all.end(), pieces.begin(), pieces.end());
        Doubles wave = made<double>(waveLen, all);
        for (double& x : wave) x += 0.25; // each frame loses its mean
        double endPoint[] = {2, 50};
        cAudio::endPointDetect4quokka(wave.data(), waveLen, 8000, 16, endPoint);
        EXPECT_EQ(endPoint[0], std::max(0.0, hop * start - 384)) << what;
        EXPECT_EQ(endPoint[1], std::min(waveLen - 1.0, hop * end + 640)) << what;
        EXPECT_EQ(wave[0], 8192) << "rescaled";
    }
}

} // namespace
