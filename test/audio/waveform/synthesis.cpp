#include "support/audio.hpp"

namespace {

/// Pitches in frames of a hundredth of a second, or notes with durations.
Doubles sound(const Doubles& pitch, const Doubles& duration, int waveLen) {
    Doubles wave(size_t(waveLen), 9.0);
    if (duration.empty())
        cAudio::pitch2wave(pitch.data(), lengthOf(pitch), 100, 8000, wave.data(), waveLen);
    else
        cAudio::note2wave(pitch.data(), lengthOf(pitch), duration.data(), 8000, wave.data(), waveLen);
    return wave;
}

TEST(Synthesis, WritesWholePeriodsAndEnds) {
    const struct {
        Doubles pitch, duration;
        int waveLen, end, resume, end2; // sounds up to end, and from resume to end2
    } cases[] = {
        {{69, 0, 69}, {}, 240, 90, 160, 232},
        {{69, 0, 69}, {0.01, 0, 1}, 100, 90, 90, 90},
        {{0, 69}, {0, 1}, 100, 90, 90, 90},
        {{notANumber, 69}, {0.01009, 1}, 200, 0, 80, 188},
        {{200, 69}, {0.01, 1}, 200, 0, 80, 188}, // a period of no sample
        {{-1e9}, {1}, 100, 0, 0, 0},             // one beyond the output
        {{69}, {1}, 90, 90, 90, 90},             // the last period ends with the output
        {{69, 0}, {-1, 1}, 100, 18, 18, 18},     // starts that do not ascend
        {{69, 69}, {notANumber, 1}, 100, 90, 90, 90},
        {{}, {}, 100, 0, 0, 0},
    };
    for (const auto& c : cases) {
        const Doubles wave = sound(c.pitch, c.duration, c.waveLen);
        for (int i = 0; i < c.waveLen; ++i) {
            const int since = i < c.end ? i : i - c.resume;
            const bool sounds = i < c.end || (i >= c.resume && i < c.end2);
            const double sine = 0.8 * std::sin((6.28318530717958 / 18) * (since % 18));
            ASSERT_EQ(wave[size_t(i)], sounds ? sine : 0.0) << testing::PrintToString(c.pitch) << ' ' << i;
        }
    }
}

TEST(Synthesis, PeriodIsFoundAgain) {
    for (float pitch = 40; pitch < 84; pitch += 0.7F) {
        Doubles wave = sound({double(pitch)}, {}, 1200), amdf(400);
        frame2amdf(wave.data(), 800, amdf.data(), 400, 1);
        const auto period = std::min_element(amdf.begin() + 1, amdf.end()) - amdf.begin();
        EXPECT_EQ(period, cAudio::myRound2(8000 / cAudio::pitch2freq(pitch))) << pitch;
        EXPECT_NEAR(double(cAudio::freq2pitch(cAudio::pitch2freq(pitch))), double(pitch), 1e-4);
    }
    EXPECT_EQ(cAudio::pitch2freq(81), 880);
    EXPECT_EQ(cAudio::pitch2freq(-5) + cAudio::freq2pitch(-5), 0);
}

TEST(Synthesis, NotesToPitch) {
    const double note[] = {60, 0.1, 62, 0.1, 64};
    const std::pair<double, Doubles> cases[] = {
        {0.05, {60, 60, 62, 62, 62}}, {0.3, {60, 62, 62}}, {notANumber, {0, 0}}};
    for (const auto& [timeStep, expected] : cases) {
        Doubles pv(expected.size(), 9.0);
        const ConsoleCapture console;
        cAudio::note2pv(note, 5, timeStep, pv.data(), lengthOf(pv));
        EXPECT_EQ(pv, expected) << timeStep;
        const char two[] = "noteCumulatedTime=0.100000\nnoteCumulatedTime=0.200000\n";
        EXPECT_EQ(console.text(), timeStep > 0 ? two : "") << timeStep;
    }
}

} // namespace
