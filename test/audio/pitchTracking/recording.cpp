#include "audio/audio.hpp"
#include "support/console.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

/// Silence, a tone, silence.
std::vector<short> tone(int fs, double frequency, double amplitude) {
    std::vector<short> wave(static_cast<size_t>(2 * fs));
    for (int i = fs / 2; i < fs * 3 / 2; ++i)
        wave[static_cast<size_t>(i)] =
            static_cast<short>(amplitude * std::sin(6.283185307 * frequency * i / fs));
    return wave;
}

std::vector<int> bGetPitch(const std::vector<short>& wave, int fs, int nbits) {
    int* out = nullptr;
    int outLen = -1;
    EXPECT_TRUE(cAudio::bGetPitch(wave, out, outLen, fs, nbits));
    const std::vector<int> result(out, out + outLen);
    std::free(out);
    return result;
}

TEST(Recording, PitchInTenths) {
    const std::string rate = "fs=44100 ===> Resample to have fs=8000\n";
    const std::string depth = "nbits=16 ===> Convert from nbits=16 to 8!\n";
    const struct {
        int fs, nbits;
        double amplitude;
        std::string printed;
    } cases[] = {
        {8000, 16, 20000, depth}, {44100, 16, 20000, rate + depth}, {44100, 8, 90, rate}, {8000, 8, 90, ""}};
    for (const auto& c : cases) {
        const ConsoleCapture console;
        const std::vector<int> pitch = bGetPitch(tone(c.fs, 200.0, c.amplitude), c.fs, c.nbits);
        EXPECT_NEAR(static_cast<double>(pitch.size()), 31.0, 2.0) << c.fs << ' ' << c.nbits;
        EXPECT_EQ(pitch, std::vector<int>(pitch.size(), 550)) << c.fs << ' ' << c.nbits;
        EXPECT_EQ(console.text(), c.printed);
    }
    const ConsoleCapture console;
    const std::vector<short> none[] = {{}, std::vector<short>(100, 7), std::vector<short>(8000)};
    for (const auto& wave : none)
        for (const int fs : {8000, 16000, 100, 0, INT_MIN})
            EXPECT_EQ(bGetPitch(wave, fs, 16), std::vector<int>()) << fs;
}

TEST(Recording, Silence) {
    const ConsoleCapture console;
    const auto loudest = [](size_t length,
                            int value) { // a frame whose deviations sum to value * 256 once reduced
        std::vector<short> wave(length);
        for (int i = 0; i < value; ++i) wave[static_cast<size_t>(i)] = 256;
        return wave;
    };
    const struct {
        std::vector<short> wave;
        int fs, nbits, volTh;
        bool silent;
    } cases[] = {
        {loudest(512, 4), 8000, 16, 5, true},
        {loudest(512, 5), 8000, 16, 5, false},
        {loudest(640, 12), 16000, 16, 5, true},
        {loudest(640, 13), 16000, 16, 5, false}, // 3072, 3328 by 3200
        {loudest(640, 1), 16000, 8, 103, true},
        {loudest(640, 1), 16000, 8, 102, false}, // 256 by 257.5, 255
        {loudest(100, 0), 8000, 16, 1000, false},
        {{}, 0, INT_MIN, INT_MAX, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(cAudio::isWaveSilence(c.wave, c.fs, c.nbits, c.volTh), c.silent) << c.fs << ' ' << c.volTh;
}

} // namespace
