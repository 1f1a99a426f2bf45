#include "support/audio.hpp"

namespace {

using Recording = std::vector<short>;

Ints bGetPitch(const Recording& wave, int fs, int nbits) {
    int* out = nullptr;
    int outLen = -1;
    EXPECT_TRUE(cAudio::bGetPitch(wave, out, outLen, fs, nbits));
    Ints result(out, out + outLen);
    std::free(out);
    return result;
}

TEST(Recordings, PitchInTenths) {
    for (const int fs : {8000, 44100})
        for (const int nbits : {8, 16}) {
            Recording wave(size_t(2 * fs)); // a second of a tone in the middle
            for (int i = fs / 2; i < fs * 3 / 2; ++i)
                wave[size_t(i)] =
                    static_cast<short>((nbits == 16 ? 20000 : 90) * std::sin(6.283185307 * 200 * i / fs));
            const ConsoleCapture console;
            const Ints pitch = bGetPitch(wave, fs, nbits);
            EXPECT_NEAR(double(pitch.size()), 31.0, 2.0) << fs << ' ' << nbits;
            EXPECT_EQ(pitch, Ints(pitch.size(), 550)) << fs << ' ' << nbits;
            const std::string rate = fs == 8000 ? "" : "fs=44100 ===> Resample to have fs=8000\n";
            EXPECT_EQ(console.text(),
                      rate + (nbits == 8 ? "" : "nbits=16 ===> Convert from nbits=16 to 8!\n"));
        }
    const ConsoleCapture console;
    for (const Recording& wave : {Recording(), Recording(100, 7), Recording(8000)})
        for (const int fs : {8000, 16000, 100, 0, INT_MIN})
            EXPECT_EQ(bGetPitch(wave, fs, 16).size(), 0U) << fs;
}

TEST(Recordings, WhatIntCannotCountIsRefused) {
    const ConsoleCapture console;
    EXPECT_EQ(
        fatalMessage([] { bGetPitch(Recording(300000), 1, 16); }),
        "bGetPitch: wave has 300000 samples at fs=1, which are 2399992001 at 8000: more than 2147483647 "
        "(line N of file ../../../../c/lib/audio/audio)");
}

TEST(Recordings, Silence) {
    const ConsoleCapture console;
    for (const auto& [length, fs, sample, least] : {std::tuple(512, 8000, 256, 5), {640, 16000, 255, 13}})
        for (const int loud : {least - 1, least}) { // samples that are not 0
            Recording wave(static_cast<size_t>(length));
            std::fill_n(wave.begin(), loud, static_cast<short>(sample));
            EXPECT_EQ(cAudio::isWaveSilence(wave, fs, 16, 5), loud < least) << fs << ' ' << loud;
        }
    EXPECT_FALSE(cAudio::isWaveSilence({}, 0, INT_MIN, INT_MAX));
}

} // namespace
