#include "support/audio.hpp"

namespace {

/// A stretch of sound: sines of one period after the other, each from phase 0.
struct Stretch {
    int begin, period, end;
};

Doubles sound(const std::vector<Stretch>& stretches) {
    Doubles wave(240);
    for (const auto& [begin, period, end] : stretches)
        for (int i = begin; i < end; ++i)
            wave[size_t(i)] = 0.8 * std::sin(6.28318530717958 / period * ((i - begin) % period));
    return wave;
}

TEST(Synthesis, OfPitchWritesWholePeriods) {
    const auto sung = [](const Doubles& pitch) {
        Doubles wave(240, 9);
        cAudio::pitch2wave(pitch.data(), lengthOf(pitch), 150, 8000, wave.data(), 240);
        return wave;
    };
    EXPECT_EQ(sung({69, 0, 69}), sound({{0, 18, 54}, {107, 18, 233}}));
    EXPECT_EQ(sung({81, 69, 81}), sound({{0, 9, 54}, {54, 18, 108}, {108, 9, 234}}));
    EXPECT_EQ(sung({}), sound({}));
}

TEST(Synthesis, OfNotesStartsEachWhereTheLastEnds) {
    const auto played = [](const Doubles& pitch, double duration) {
        Doubles wave(240, 9);
        const double durations[] = {duration, 1};
        cAudio::note2wave(pitch.data(), 2, durations, 8000, wave.data(), 240);
        return wave;
    };
    EXPECT_EQ(played({0, 76}, 0), sound({{0, 12, 240}}));
    EXPECT_EQ(played({notANumber, 69}, 0.01009), sound({{80, 18, 224}})); // a period of no sample
    EXPECT_EQ(played({0, -1e9}, 0.01), sound({}));                        // a period beyond the end
    EXPECT_EQ(played({69, 0}, -1), sound({{0, 18, 18}}));                 // starts that do not ascend
}

TEST(Synthesis, TwelveSemitonesDoubleTheFrequency) {
    EXPECT_EQ(cAudio::pitch2freq(81), 880);
    EXPECT_EQ(cAudio::pitch2freq(0), 0);
    EXPECT_EQ(cAudio::pitch2freq(-5), 0);
    EXPECT_EQ(cAudio::freq2pitch(880), 81);
    EXPECT_EQ(cAudio::freq2pitch(0), 0);
}

TEST(Synthesis, NotesAreHeldUntilTheNextIsTaken) {
    const double note[] = {60, 0.1, 62, 0.1, 64};
    const ConsoleCapture console;
    Doubles pv(5, 9.0);
    cAudio::note2pv(note, 5, 0.05, pv.data(), 5);
    EXPECT_EQ(text(pv), "60 60 62 62 62");
    EXPECT_EQ(console.text(), "noteCumulatedTime=0.100000\nnoteCumulatedTime=0.200000\n");
    cAudio::note2pv(note, 4, 0.3, pv.data(), 5);
    EXPECT_EQ(text(pv), "60 62 62 62 62"); // one for each value at most
}

} // namespace
