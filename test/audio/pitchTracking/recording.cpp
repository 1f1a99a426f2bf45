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

/// A sine of so many frames of 32 ms, and what bGetPitch says of each of them.
struct Note {
    int period; // samples at 8 kHz
    int frames;
    int amplitude; // in steps of 8 bits
    int tenths;
};

/// The notes between two silences.
Recording played(const std::vector<Note>& notes) {
    Recording wave(2560);
    double phase = 0.0;
    for (const Note& note : notes)
        for (int i = 0; i < 256 * note.frames; ++i) {
            phase += 6.283185307 / note.period;
            wave.push_back(static_cast<short>(std::lround(256 * note.amplitude * std::sin(phase))));
        }
    wave.resize(wave.size() + 2560);
    return wave;
}

TEST(Recordings, EachStageDecidesWhatIsHeard) {
    const Note a{40, 10, 90, 550};
    const Note high{8, 16, 100, 830};
    const std::pair<const char*, std::vector<Note>> cases[] = {
        {"an octave below the median and one above it",
         {a, a, {78, 8, 90, 440}, a, {84, 8, 90, 0}, a, {20, 8, 90, 670}, a, {19, 8, 90, 560}, a}},
        {"each pass around the median of the one before",
         {{31, 28, 70, 590}, {65, 40, 90, 0}, {21, 10, 50, 660}, {14, 20, 40, 730}, {11, 6, 40, 770}}},
        {"a median of what sounds, not of a hum that lasts longer",
         {high, {20, 14, 100, 0}, {14, 30, 12, 0}, high, {6, 4, 80, 880}, high}},
        {"nothing above 90", {high, {5, 10, 90, 0}, high, {6, 10, 90, 880}, high}},
        {"a leap costs more than a soft note gains, and less than a louder one",
         {a, {26, 5, 14, 500}, a, {26, 5, 15, 620}, a}},
    };
    const ConsoleCapture console;
    for (const auto& [name, notes] : cases) {
        Ints expected;
        for (const Note& note : notes) expected.resize(expected.size() + size_t(note.frames), note.tenths);
        EXPECT_EQ(text(bGetPitch(played(notes), 8000, 16)), text(expected)) << name;
    }
}

TEST(Recordings, AreBroughtTo8000HzAnd8Bits) {
    const ConsoleCapture console;
    Recording wave(88200); // a second of a tone in the middle
    for (int i = 22050; i < 66150; ++i)
        wave[size_t(i)] = static_cast<short>(20000 * std::sin(6.283185307 * 200 * i / 44100));
    const Ints pitch = bGetPitch(wave, 44100, 16);
    EXPECT_EQ(std::count(pitch.begin(), pitch.end(), 550), lengthOf(pitch));
    EXPECT_NEAR(lengthOf(pitch), 31, 2);
    EXPECT_EQ(console.text(), "fs=44100 ===> Resample to have fs=8000\n"
                              "nbits=16 ===> Convert from nbits=16 to 8!\n");
    for (short& sample : wave) sample = static_cast<short>(sample / 200);
    EXPECT_EQ(bGetPitch(wave, 44100, 16), Ints());
    EXPECT_EQ(bGetPitch(wave, 44100, 8), pitch);
}

TEST(Recordings, WithoutAFrameHaveNoPitchAndTooLongOnesAreRefused) {
    const ConsoleCapture console;
    for (const int fs : {8000, 100, 0, INT_MIN})
        EXPECT_EQ(bGetPitch(Recording(255, 7), fs, 16), Ints()) << fs;
    EXPECT_EQ(bGetPitch({}, 16000, 16), Ints());
    EXPECT_EQ(
        fatalMessage([] { bGetPitch(Recording(300000), 1, 16); }),
        "bGetPitch: wave has 300000 samples at fs=1, which are 2399992001 at 8000: more than 2147483647 "
        "(line N of file ../../../../c/lib/audio/audio)");
}

TEST(Recordings, AreSilentBelowTheThreshold) {
    struct {
        int fs;
        int frameSize;
        short sample;
        int least; // samples of that value that a frame needs for a volume of 5/256 a sample, in 8 bits
    } const cases[] = {{8000, 256, 256, 5}, {8000, 256, -256, 5}, {16000, 640, 255, 13}};
    const ConsoleCapture console;
    for (const auto& [fs, frameSize, sample, least] : cases) {
        Recording wave(size_t(2 * frameSize));
        std::fill_n(wave.end() - frameSize, least - 1, sample);
        EXPECT_TRUE(cAudio::isWaveSilence(wave, fs, 16, 5)) << fs << ' ' << sample;
        wave.back() = sample;
        EXPECT_FALSE(cAudio::isWaveSilence(wave, fs, 16, 5)) << fs << ' ' << sample;
    }
    EXPECT_FALSE(cAudio::isWaveSilence({}, 0, INT_MIN, INT_MAX));
}

} // namespace
