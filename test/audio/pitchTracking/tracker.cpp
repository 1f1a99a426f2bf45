#include "audio/audio.hpp"
#include "support/console.hpp"
#include "utility/rounding.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Pitch = std::vector<double>; // of melodies: 100 values per second

/// Silence, a glide up and down between two pitches, silence, and notes with silences between some of them.
Pitch melody(double low, double high) {
    Pitch values(310, 0.0);
    for (size_t i = 0; i <= 125; ++i)
        values[30 + i] = values[280 - i] = low + (high - low) * static_cast<double>(i) / 125.0;
    for (const double note : {low, (low + high) / 2, high, 0.0, high, low, 0.0})
        values.insert(values.end(), 30, note);
    return values;
}

std::vector<int> sound(const Pitch& values, int fs, double noise) {
    const size_t length = values.size() * static_cast<size_t>(fs) / 100;
    Pitch wave(length);
    cAudio::pitch2wave(values.data(), static_cast<int>(values.size()), 100, fs, wave.data(),
                       static_cast<int>(length));
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::normal_distribution<double> gauss;
    std::vector<int> samples;
    for (const double x : wave) samples.push_back(myRound(16000.0 * (x + noise * gauss(random))));
    return samples;
}

struct Tracked {
    Pitch pitch, clarity, pfMat;
    std::vector<int> bestIndex;

    Tracked(const std::vector<int>& wave, PTPARAM p) {
        const auto length = static_cast<int>(wave.size());
        const int frames = std::max(0, cAudio::getFrameNum2(length, p.frameSize, p.overlap));
        pitch.resize(static_cast<size_t>(frames), -1.0);
        clarity = pitch;
        bestIndex.resize(pitch.size(), -7);
        pfMat.resize(pitch.size() * static_cast<size_t>(p.pfLen), -1.0);
        pitch.resize(static_cast<size_t>(ptByDpOverPfOnce<double, int>(
            wave.data(), length, p, pitch.data(), clarity.data(), pfMat.data(), bestIndex.data())));
    }
};

PTPARAM parameters(int fs, PF_TYPE pfType) {
    PTPARAM p;
    cAudio::ptParamSet(&p, fs, 16, pfType, nullptr);
    return p;
}

/// The share of frames with a pitch, to half a semitone, that the melody has within 30 ms of their middle, or
/// with none where it has none.
double shareFound(const Pitch& values, double noise, const PTPARAM& p) {
    const Pitch tracked = Tracked(sound(values, p.fs, noise), p).pitch;
    double found = 0.0;
    for (size_t i = 0; i < tracked.size(); ++i) {
        const double sample = static_cast<double>(i) * (p.frameSize - p.overlap) + p.frameSize / 2.0;
        const auto middle = values.begin() + static_cast<int>(sample * 100 / p.fs);
        const bool isFound = std::any_of(
            std::max(middle - 3, values.begin()), std::min(middle + 4, values.end()),
            [&](double pitch) { return std::abs(tracked[i] - pitch) <= (pitch > 0.0 ? 0.5 : 0.0); });
        found += isFound ? 1.0 : 0.0;
    }
    return found / static_cast<double>(tracked.size());
}

TEST(Tracker, FindsMelodies) {
    for (const int fs : {8000, 16000, 44100})
        for (const PF_TYPE pfType : {PF_AMDF, PF_ACF}) {
            PTPARAM p = parameters(fs, pfType);
            const double low = fs == 8000 ? 43 : 48; // where short periods are not too coarse
            EXPECT_GE(shareFound(melody(low, low + 24), 0.0, p), 0.98) << fs << ' ' << pfType;
            p.minPitch = 46.0F; // in noise every multiple of the period is as deep in the AMDF
            p.maxPitch = 60.0F;
            for (const double shift : {0.0, 1.0})
                EXPECT_GE(shareFound(melody(52 + shift, 54 + shift), 0.05, p), 0.98) << fs << ' ' << pfType;
        }
}

TEST(Tracker, EachSwitchDoesItsOneThing) {
    const std::vector<int> wave = sound(melody(50, 62), 16000, 0.003);
    PTPARAM p = parameters(16000, PF_ACF);
    p.useVolThreshold = p.useClarityThreshold = p.medianFilterOrder = p.useClarityWeight = 0;
    const auto with = [&](int PTPARAM::*field, int value) {
        PTPARAM changed = p;
        changed.*field = value;
        return Tracked(wave, changed);
    };
    const Tracked plain(wave, p);
    EXPECT_EQ(std::count(plain.pitch.begin(), plain.pitch.end(), 0.0), 0);
    EXPECT_EQ(*std::max_element(plain.pfMat.begin(), plain.pfMat.end()), 1048576.0);
    EXPECT_EQ(with(&PTPARAM::medianFilterOrder, 3).pitch[60], getPitchMedian(&plain.pitch[59], 3));
    const Tracked weighted = with(&PTPARAM::useClarityWeight, 1);
    const Tracked loud = with(&PTPARAM::useVolThreshold, 1);
    const Tracked clear = with(&PTPARAM::useClarityThreshold, 1);
    const double largest = *std::max_element(clear.clarity.begin(), clear.clarity.end());
    for (size_t i = 0; i < plain.pitch.size(); ++i) {
        const double* pf = &plain.pfMat[i * 320];
        EXPECT_EQ(weighted.pfMat[i * 320 + 7], pf[7] * plain.clarity[i]) << i;
        EXPECT_TRUE(loud.pitch[i] == plain.pitch[i] || loud.pitch[i] == 0.0) << i;
        const double ratio = pf[plain.bestIndex[i]] / pf[0];
        EXPECT_EQ(clear.clarity[i], ratio < 0 || ratio > 1 ? 0 : ratio) << i;
        const bool kept = clear.clarity[i] >= static_cast<double>(p.clarityRatio) * largest;
        EXPECT_EQ(clear.pitch[i], kept ? plain.pitch[i] : 0.0) << i;
    }
    EXPECT_NEAR(static_cast<double>(std::count(loud.pitch.begin(), loud.pitch.end(), 0.0)), 120.0, 16.0);
    p.useVolThreshold = 1;
    int first = 0;
    int last = 0;
    cAudio::trimPitch(loud.pitch.data(), static_cast<int>(loud.pitch.size()), first, last);
    EXPECT_EQ(with(&PTPARAM::cutLeadingTrailingZero, 1).pitch,
              Pitch(loud.pitch.begin() + first, loud.pitch.begin() + last + 1));
}

TEST(Tracker, NothingToTrack) {
    const ConsoleCapture console;
    PTPARAM p = parameters(8000, PF_ACF);
    p.dpUseLocalOptim = 0;
    EXPECT_EQ(Tracked(std::vector<int>(255), p).pitch, Pitch());
    EXPECT_EQ(console.text(), "");
    const Tracked silence(std::vector<int>(2560), p);
    EXPECT_EQ(withoutLineNumber(console.text()),
              "Warning: Cannot find any segment after epdByVol! (line N of file "
              "../../../../c/lib/audio/audio)");
    EXPECT_EQ(silence.pitch, Pitch(10, 0.0));
    EXPECT_EQ(silence.clarity, Pitch(10, 0.0));
    EXPECT_EQ(silence.pfMat, Pitch(1280, 0.0));
    EXPECT_EQ(silence.bestIndex, std::vector<int>(10, -1));
    std::vector<int> tone = sound(Pitch(100, 60.0), 8000, 0.0);
    tone.resize(256);
    EXPECT_EQ(Tracked(tone, p).pitch, Pitch{0.0}); // a single frame has no path
    p.pfType = static_cast<PF_TYPE>(5);
    EXPECT_EQ(fatalMessage([&] { Tracked(tone, p); }),
              "Unknown pfType=5 (line N of file ../../../../c/lib/audio/audio)");
}

} // namespace
