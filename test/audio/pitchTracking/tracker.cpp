#include "audio/audio.hpp"
#include "support/console.hpp"
#include "utility/rounding.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

using Pitch = std::vector<double>; // of melodies: 100 values per second

/// Silence, a glide up and down between two pitches, silence.
Pitch glide(double low, double high) {
    Pitch melody(460, 0.0);
    for (int i = 0; i < 400; ++i)
        melody[static_cast<size_t>(30 + i)] = low + (high - low) * (1 - std::abs(i - 200) / 200.0);
    return melody;
}

/// Notes of half a second with silences between some of them.
Pitch steps(double low, double high) {
    Pitch melody;
    for (const double note : {0.0, low, (low + high) / 2, high, 0.0, high, low, 0.0})
        melody.insert(melody.end(), 50, note);
    return melody;
}

std::vector<int> sound(const Pitch& melody, int fs, double noise) {
    Pitch wave(melody.size() * static_cast<size_t>(fs) / 100);
    cAudio::pitch2wave(melody.data(), static_cast<int>(melody.size()), 100.0, fs, wave.data(),
                       static_cast<int>(wave.size()));
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

/// Of the frames that lie inside the sound or the silence of a melody, the share with its pitch, or that of
/// the whole number of samples which a period of the sound has, to half a semitone.
double shareFound(const Pitch& melody, double noise, const PTPARAM& p) {
    const Pitch tracked = Tracked(sound(melody, p.fs, noise), p).pitch;
    double judged = 0.0;
    double found = 0.0;
    for (size_t i = 0; i < tracked.size(); ++i) {
        const double step = (p.frameSize - p.overlap) * 100.0 / p.fs;
        const double middle = static_cast<double>(i) * step + p.frameSize * 50.0 / p.fs;
        const double pitch = melody[static_cast<size_t>(middle)];
        const auto first = melody.begin() + static_cast<int>(std::max(middle - 3.0, 0.0));
        if (std::any_of(first, first + std::min<std::ptrdiff_t>(6, melody.end() - first),
                        [&](double other) { return std::abs(other - pitch) > 0.6; }))
            continue;
        const double heard =
            69 + 12 * std::log2(p.fs / std::round(p.fs / (440 * std::exp2((pitch - 69) / 12))) / 440);
        const double error = std::min(std::abs(tracked[i] - heard), std::abs(tracked[i] - pitch));
        judged += 1.0;
        found += (pitch > 0.0 ? error <= 0.5 : tracked[i] == 0.0) ? 1.0 : 0.0;
    }
    return judged < 50.0 ? 0.0 : found / judged;
}

TEST(Tracker, FindsMelodies) {
    for (const int fs : {8000, 16000, 44100})
        for (const PF_TYPE pfType : {PF_AMDF, PF_ACF})
            for (const double shift : {0.0, 1.0}) {
                PTPARAM p = parameters(fs, pfType);
                const double low = shift + (fs == 8000 ? 43 : 48); // where short periods are not too coarse
                EXPECT_GE(shareFound(glide(low, low + 24), 0.0, p), 0.98)
                    << fs << ' ' << pfType << ' ' << low;
                EXPECT_GE(shareFound(steps(low, low + 24), 0.0, p), 0.98)
                    << fs << ' ' << pfType << ' ' << low;
                p.minPitch = 46.0F; // in noise every multiple of the period is as deep in the AMDF
                p.maxPitch = 60.0F;
                EXPECT_GE(shareFound(glide(47 + shift, 57 + shift), 0.05, p), 0.98) << fs << ' ' << pfType;
            }
}

TEST(Tracker, EachSwitchDoesItsOneThing) {
    const std::vector<int> wave = sound(steps(50, 62), 16000, 0.003);
    PTPARAM p = parameters(16000, PF_ACF);
    p.useVolThreshold = p.useClarityThreshold = p.medianFilterOrder = p.useClarityWeight = 0;
    const auto with = [&](auto field, auto value) {
        PTPARAM changed = p;
        changed.*field = value;
        return Tracked(wave, changed);
    };
    const Tracked plain(wave, p);
    const size_t frames = plain.pitch.size();
    EXPECT_EQ(std::count(plain.pitch.begin(), plain.pitch.end(), 0.0), 0);
    EXPECT_EQ(*std::max_element(plain.pfMat.begin(), plain.pfMat.end()), 1048576.0);

    Pitch filtered = plain.pitch;
    medianFilter(filtered.data(), static_cast<int>(frames), 7);
    EXPECT_EQ(with(&PTPARAM::medianFilterOrder, 7).pitch, filtered);

    const Tracked weighted = with(&PTPARAM::useClarityWeight, 1);
    const Tracked loud = with(&PTPARAM::useVolThreshold, 1);
    const Tracked clear = with(&PTPARAM::useClarityThreshold, 1);
    const double largest = *std::max_element(clear.clarity.begin(), clear.clarity.end());
    for (size_t i = 0; i < frames; ++i) {
        EXPECT_EQ(weighted.pfMat[i * 320 + 7], plain.pfMat[i * 320 + 7] * plain.clarity[i]) << i;
        EXPECT_TRUE(loud.pitch[i] == plain.pitch[i] || loud.pitch[i] == 0.0) << i;
        const double ratio =
            plain.pfMat[i * 320 + static_cast<size_t>(plain.bestIndex[i])] / plain.pfMat[i * 320];
        EXPECT_EQ(clear.clarity[i], ratio < 0 || ratio > 1 ? 0 : ratio) << i;
        const bool kept = clear.clarity[i] >= static_cast<double>(p.clarityRatio) * largest;
        EXPECT_EQ(clear.pitch[i], kept ? plain.pitch[i] : 0.0) << i;
    }
    EXPECT_NEAR(static_cast<double>(std::count(loud.pitch.begin(), loud.pitch.end(), 0.0)), 150.0, 15.0);

    p.useVolThreshold = 1;
    const auto voiced = [](double pitch) { return pitch != 0.0; };
    const auto first = std::find_if(loud.pitch.begin(), loud.pitch.end(), voiced);
    const auto last = std::find_if(loud.pitch.rbegin(), loud.pitch.rend(), voiced).base();
    EXPECT_EQ(with(&PTPARAM::cutLeadingTrailingZero, 1).pitch, Pitch(first, last));
}

TEST(Tracker, NothingToTrack) {
    for (const PF_TYPE pfType : {PF_AMDF, PF_ACF})
        for (const int localOptim : {0, 1}) {
            const ConsoleCapture console;
            PTPARAM p = parameters(8000, pfType);
            p.dpUseLocalOptim = localOptim;
            const Tracked silence(std::vector<int>(2560), p);
            EXPECT_EQ(silence.pitch, Pitch(10, 0.0));
            EXPECT_EQ(silence.clarity, Pitch(10, 0.0));
            EXPECT_EQ(silence.pfMat, Pitch(1280, 0.0));
            EXPECT_EQ(silence.bestIndex, std::vector<int>(10, -1));
            EXPECT_EQ(withoutLineNumber(console.text()),
                      "Warning: Cannot find any segment after epdByVol! (line N "
                      "of file ../../../../c/lib/audio/audio)");
        }
    const ConsoleCapture console;
    PTPARAM p = parameters(8000, PF_ACF);
    std::vector<int> tone = sound(Pitch(100, 60.0), 8000, 0.0);
    EXPECT_EQ(Tracked(std::vector<int>(255), p).pitch, Pitch());
    p.overlap = p.frameSize;
    EXPECT_EQ(Tracked(tone, p).pitch, Pitch());
    EXPECT_EQ(console.text(), "");
    p.overlap = 0;
    p.minPitch = -4.0F;
    EXPECT_EQ(Tracked(tone, p).pitch, Pitch(31, 0.0));
    p.pfType = static_cast<PF_TYPE>(5);
    EXPECT_EQ(fatalMessage([&] { Tracked(tone, p); }),
              "Unknown pfType=5 (line N of file ../../../../c/lib/audio/audio)");
    tone.resize(256);
    EXPECT_EQ(Tracked(tone, parameters(8000, PF_ACF)).pitch, Pitch{0.0});
}

} // namespace
