#include "audio/audio.hpp"
#include "support/console.hpp"
#include "utility/rounding.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

using Pitch = std::vector<double>;

constexpr int melodyRate = 100; // values per second

/// Silence, a glide up and down between two pitches, silence.
Pitch glide(double low, double high) {
    Pitch melody(30, 0.0);
    for (int i = 0; i < 400; ++i) melody.push_back(low + (high - low) * (1 - std::abs(i - 200) / 200.0));
    melody.insert(melody.end(), 30, 0.0);
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
    const auto length = static_cast<int>(melody.size()) * fs / melodyRate;
    Pitch wave(static_cast<size_t>(length));
    cAudio::pitch2wave(melody.data(), static_cast<int>(melody.size()), melodyRate, fs, wave.data(), length);
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::normal_distribution<double> gauss(0.0, noise > 0 ? noise : 1.0);
    std::vector<int> samples;
    for (const double x : wave) samples.push_back(myRound(16000.0 * (x + (noise > 0 ? gauss(random) : 0.0))));
    return samples;
}

struct Tracked {
    Pitch pitch, clarity, pfMat;
    std::vector<int> bestIndex;

    Tracked(const std::vector<int>& wave, PTPARAM& p) {
        const auto length = static_cast<int>(wave.size());
        const auto frames =
            static_cast<size_t>(std::max(0, cAudio::getFrameNum2(length, p.frameSize, p.overlap)));
        pitch.resize(frames, -1.0);
        clarity = pitch;
        bestIndex.resize(frames, -7);
        pfMat.resize(frames * static_cast<size_t>(p.pfLen), -1.0);
        pitch.resize(static_cast<size_t>(ptByDpOverPfOnce<double, int>(
            wave.data(), length, p, pitch.data(), clarity.data(), pfMat.data(), bestIndex.data())));
    }
};

Pitch track(const std::vector<int>& wave, PTPARAM& p) {
    return Tracked(wave, p).pitch;
}

PTPARAM parameters(int fs, PF_TYPE pfType) {
    PTPARAM ptParam;
    cAudio::ptParamSet(&ptParam, fs, 16, pfType, nullptr);
    return ptParam;
}

/// Of the frames that lie well inside the sound or the silence of a melody, the share with its pitch (that of
/// the whole number of samples that a period of the sound has) to half a semitone.
double shareFound(const Pitch& melody, const Pitch& tracked, const PTPARAM& p) {
    int judged = 0;
    int found = 0;
    const auto at = [&](double sample) { return melody[static_cast<size_t>(sample * melodyRate / p.fs)]; };
    const double margin = p.fs / 100.0; // a period of the sound runs on into the next value
    const double length = static_cast<double>(melody.size()) * p.fs / melodyRate;
    for (size_t i = 0; i < tracked.size(); ++i) {
        const double start = static_cast<double>(i) * (p.frameSize - p.overlap);
        const double pitch = at(start + p.frameSize / 2.0);
        bool uniform = true;
        for (double t = std::max(start - margin, 0.0); t < std::min(start + p.frameSize + margin, length);
             ++t)
            uniform = uniform && std::abs(at(t) - pitch) < 0.6;
        if (!uniform) continue;
        const double heard =
            69 + 12 * std::log2(p.fs / std::round(p.fs / (440 * std::exp2((pitch - 69) / 12))) / 440);
        ++judged;
        found += pitch > 0 ? std::min(std::abs(tracked[i] - heard), std::abs(tracked[i] - pitch)) <= 0.5
                           : tracked[i] == 0;
    }
    return judged < 50 ? 0.0 : static_cast<double>(found) / judged;
}

TEST(Tracker, FindsMelodies) {
    for (const int fs : {8000, 16000, 44100})
        for (const PF_TYPE pfType : {PF_AMDF, PF_ACF}) {
            PTPARAM p = parameters(fs, pfType);
            const std::string row = std::to_string(fs) + (pfType == PF_ACF ? " ACF" : " AMDF");
            const double low = fs == 8000 ? 41.0 : 48.0; // short periods come in coarse steps
            for (const double shift : {0.0, 2.0})
                for (const Pitch& melody :
                     {glide(low + shift, low + shift + 24), steps(low + shift, low + shift + 24)})
                    EXPECT_GE(shareFound(melody, track(sound(melody, fs, 0.0), p), p), 0.98) << row << shift;
            p.minPitch = 46.0F; // in noise every multiple of the period is as deep in the AMDF
            p.maxPitch = 60.0F;
            const Pitch melody = glide(48, 58);
            EXPECT_GE(shareFound(melody, track(sound(melody, fs, 0.05), p), p), 0.98) << row << " noise";
        }
}

TEST(Tracker, EachSwitchDoesItsOneThing) {
    const std::vector<int> wave = sound(steps(50, 62), 16000, 0.003);
    PTPARAM p = parameters(16000, PF_ACF);
    p.useVolThreshold = p.useClarityThreshold = p.medianFilterOrder = p.useClarityWeight = 0;
    const Tracked plain(wave, p);
    EXPECT_EQ(std::count(plain.pitch.begin(), plain.pitch.end(), 0.0), 0);
    EXPECT_EQ(*std::max_element(plain.pfMat.begin(), plain.pfMat.end()), 1048576.0);
    EXPECT_EQ(std::pair(p.minIndex, p.maxIndex), std::pair(15, 319));
    EXPECT_EQ(ptByDpOverPfOnce(wave.data(), static_cast<int>(wave.size()), p,
                               Pitch(plain.pitch.size()).data(), nullptr, nullptr, nullptr),
              static_cast<int>(plain.pitch.size()));

    PTPARAM weighted = p;
    weighted.useClarityWeight = 1;
    const Tracked byClarity(wave, weighted);
    for (size_t i = 0; i < plain.pitch.size(); ++i)
        EXPECT_EQ(byClarity.pfMat[i * 320 + 7], plain.pfMat[i * 320 + 7] * plain.clarity[i]) << i;

    PTPARAM gated = p;
    gated.useVolThreshold = 1;
    Pitch inSound = track(wave, gated);
    int silent = 0;
    for (size_t i = 0; i < inSound.size(); ++i) {
        EXPECT_TRUE(inSound[i] == plain.pitch[i] || inSound[i] == 0.0) << i;
        silent += inSound[i] == 0.0 ? 1 : 0;
    }
    EXPECT_NEAR(silent, 150, 15); // three of the eight half seconds

    PTPARAM clear = p;
    clear.useClarityThreshold = 1;
    clear.clarityRatio = 0.9F;
    const Tracked clearOnly(wave, clear);
    const double largest = *std::max_element(clearOnly.clarity.begin(), clearOnly.clarity.end());
    for (size_t i = 0; i < plain.pitch.size(); ++i) {
        const double ratio =
            plain.pfMat[i * 320 + static_cast<size_t>(plain.bestIndex[i])] / plain.pfMat[i * 320];
        EXPECT_EQ(clearOnly.clarity[i], ratio < 0 || ratio > 1 ? 0 : ratio);
        const bool kept = clearOnly.clarity[i] >= static_cast<double>(clear.clarityRatio) * largest;
        EXPECT_EQ(clearOnly.pitch[i], kept ? plain.pitch[i] : 0.0) << i;
    }

    PTPARAM filtered = p;
    filtered.medianFilterOrder = 7;
    Pitch expected = plain.pitch;
    medianFilter(expected.data(), static_cast<int>(expected.size()), 7);
    EXPECT_EQ(track(wave, filtered), expected);

    gated.cutLeadingTrailingZero = 1;
    const auto voiced = [](double pitch) { return pitch != 0.0; };
    inSound.erase(inSound.begin(), std::find_if(inSound.begin(), inSound.end(), voiced));
    inSound.erase(std::find_if(inSound.rbegin(), inSound.rend(), voiced).base(), inSound.end());
    EXPECT_EQ(track(wave, gated), inSound);
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
    const std::vector<int> tone = sound(Pitch(100, 60.0), 8000, 0.0);
    EXPECT_EQ(track(std::vector<int>(255), p), Pitch());
    p.overlap = p.frameSize;
    EXPECT_EQ(track(tone, p), Pitch());
    EXPECT_EQ(console.text(), "");
    p.overlap = 0;
    EXPECT_EQ(track(std::vector<int>(tone.begin(), tone.begin() + 256), p), Pitch{0.0});
    p.minPitch = -4.0F;
    EXPECT_EQ(track(tone, p), Pitch(31, 0.0));
    p.pfType = static_cast<PF_TYPE>(5);
    EXPECT_EQ(fatalMessage([&] { track(tone, p); }),
              "Unknown pfType=5 (line N of file ../../../../c/lib/audio/audio)");
}

} // namespace
