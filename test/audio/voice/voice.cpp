#include "audio/voice/made.hpp"
#include "audio/voice/track.hpp"

namespace {

double glide(double t) {
    return 100 * std::exp2(t); // an octave each second
}

double vibrato(double t) {
    return 220 * std::exp2(40.0 / 1200 * std::sin(2 * std::numbers::pi * 5 * t));
}

/// Three octaves in four notes of half a second.
double melody(double t) {
    constexpr double notes[] = {82.4, 659.2, 110, 440};
    return notes[std::min<size_t>(static_cast<size_t>(2 * t), 3)];
}

/// Words and rests by turns, in noise.
Doubles speechLike(int fs) {
    Doubles wave = voiceOf(vibrato, 2, fs);
    for (size_t i = 0; i < wave.size(); ++i)
        if (i * 4 / wave.size() % 2 == 1) wave[i] = 0;
    return inNoise(wave);
}

TEST(Voice, GlidesVibratoAndMelodiesInNoiseAreFoundWithinTenCents) {
    const struct {
        const char* name;
        double (*contour)(double);
        int fs;
        bool leaps; // every 50 frames
    } songs[] = {{"glide", glide, 4000, false},
                 {"vibrato", vibrato, 11025, false},
                 {"melody", melody, 8000, true},
                 {"melody", melody, 44100, true}};
    for (const auto& [name, contour, fs, leaps] : songs) {
        const Doubles f0 = pitchOf(inNoise(voiceOf(contour, 2, fs)), at(fs));
        for (size_t i = 4; i + 4 < f0.size(); ++i) {
            if (leaps && (i + 4) % 50 <= 8) continue;
            ASSERT_LT(cents(f0[i], contour(static_cast<double>(i) / 100)), 10)
                << name << " at " << fs << " Hz, frame " << i << ": " << f0[i];
        }
    }
}

TEST(Voice, LevelSignOffsetAndSilenceAroundItDoNotMatter) {
    const Doubles wave = speechLike(8000);
    const Doubles f0 = pitchOf(wave, at(8000));
    const auto unvoiced = std::count(f0.begin(), f0.end(), 0.0);
    EXPECT_NEAR(double(unvoiced), 100, 10);
    const struct {
        double factor, offset;
        size_t silence; // frames before it, and sixty times as many behind
        double tolerance;
    } cases[] = {
        {-4, 0, 0, 0}, {-1e300, 0, 0, 1e-3}, {1e-307, 0, 0, 1e-3}, {1, -1e6, 0, 1e-2}, {1, 0, 100, 0.05}};
    for (const auto& [factor, offset, silence, tolerance] : cases) {
        Doubles changed(80 * silence);
        for (const double x : wave) changed.push_back(factor * x + offset);
        changed.resize(changed.size() + 80 * 60 * silence);
        const Doubles again = pitchOf(changed, at(8000));
        for (size_t i = 0; i < f0.size(); ++i)
            ASSERT_NEAR(again[silence + i], f0[i], tolerance) << "times " << factor << ", frame " << i;
        EXPECT_EQ(std::count(again.begin(), again.end(), 0.0), unvoiced + std::ptrdiff_t(61 * silence));
    }
}

TEST(Voice, NothingWithoutPeriodsHasPitch) {
    Doubles click(8000);
    click[4000] = 1;
    Doubles step(8000);
    std::fill_n(step.begin(), 4000, -1e308);
    Doubles broken = voiceOf(vibrato, 1, 8000);
    Doubles endless = broken;
    broken[4000] = notANumber;
    endless.back() = -std::numeric_limits<double>::infinity();
    const struct {
        const char* name;
        Doubles wave;
    } cases[] = {{"one sample", {5}},  {"silence", Doubles(8000)},           {"click", click},
                 {"step", step},       {"constant", Doubles(8000, 1.7e308)}, {"not-a-number", broken},
                 {"infinity", endless}};
    for (const auto& [name, wave] : cases)
        for (const double freq : pitchOf(wave, at(8000))) ASSERT_EQ(freq, 0) << name;
    EXPECT_EQ(wave2f0<double>(nullptr, 0, at(8000), nullptr), 0);
}

/// Everything that a recording's voice has.
struct Voice {
    VOICESIZES sizes;
    Doubles f0, strength;
    std::vector<float> correlation;
    std::vector<VOICECANDIDATES> candidates;

    explicit Voice(const Doubles& wave)
        : sizes(voiceSizes(lengthOf(wave), at(8000))), f0(static_cast<size_t>(sizes.frameNum)), strength(f0),
          correlation(f0.size() * static_cast<size_t>(sizes.lagNum), 9), candidates(f0.size()) {
        wave2f0(wave.data(), lengthOf(wave), at(8000), f0.data(), strength.data(), correlation.data(),
                candidates.data());
    }
};

TEST(Voice, StrengthIsThatOfTheCandidateThatThePitchIsMadeOf) {
    const Voice voice(speechLike(8000));
    for (size_t i = 0; i < voice.f0.size(); ++i) {
        const VOICECANDIDATES& frame = voice.candidates[i];
        double expected = 0;
        for (int k = 0; k < frame.num; ++k)
            if (voice.f0[i] > 0 && cents(voice.f0[i], voice.sizes.lagRate / double(frame.lag[k])) < 50)
                expected = double(frame.strength[k]);
        ASSERT_EQ(voice.strength[i], expected) << "frame " << i;
    }
    const Voice silence(Doubles(800, 0.5));
    EXPECT_EQ(std::count(silence.correlation.begin(), silence.correlation.end(), 0.0F),
              lengthOf(silence.correlation));
}

TEST(Voice, RatesRangesAndFrameRatesOfEverySizeWork) {
    const struct {
        int fs;
        double frameRate, minFreq;
    } cases[] = {{4000, 1, 20}, {7999, 33.3, 120}, {15999, 1000, 20}, {192000, 100, 20}};
    for (const auto& [fs, frameRate, minFreq] : cases) {
        VOICEPARAM param = at(fs);
        param.frameRate = frameRate;
        param.minFreq = minFreq;
        param.maxFreq = voiceSizes(1, param).lagRate / 4;
        Ints wave;
        for (const double x : voiceOf(150, 1.2, fs)) wave.push_back(static_cast<int>(1e9 * x));
        const Doubles f0 = pitchOf(wave, param);
        for (size_t i = 0; i < f0.size(); ++i) {
            const double t = static_cast<double>(i) / frameRate;
            if (t < 0.05 || t > 1.1) continue;
            ASSERT_NEAR(f0[i], 150, 0.2) << fs << " Hz, frame " << i;
        }
    }
}

TEST(Voice, AFrameLiesAtEachInstantUpToTheLastSample) {
    for (int i = 1; i < 1000; ++i) {
        ASSERT_EQ(voiceSizes(80 * i, at(8000)).frameNum, i);
        ASSERT_EQ(voiceSizes(80 * i + 1, at(8000)).frameNum, i + 1);
    }
}

TEST(Voice, WhatIsKeptAndTheInstructionSetChangeNoBit) {
    const Doubles wave = speechLike(16000);
    const wavepitch::voice::Layout layout(lengthOf(wave), at(16000));
    const wavepitch::voice::Source source(wave.data(), wave.size());
    const Doubles f0 = pitchOf(wave, at(16000));
    withEveryKernel([&](const char* name) {
        for (const size_t kept : {size_t{0}, wave.size() / 4, wave.size()}) {
            Doubles again(layout.frameNum);
            wavepitch::voice::track(source, layout, at(16000), kept,
                                    {again.data(), nullptr, nullptr, nullptr});
            EXPECT_EQ(again, f0) << name << ", kept " << kept;
        }
    });
}

TEST(Voice, WhatIsLoudBetweenFramesDoesNotSpoilTheCorrelation) {
    VOICEPARAM param = at(8000);
    param.frameRate = 10;
    Doubles wave = voiceOf(150, 1, 8000);
    for (double& x : wave) x *= 1e-25;
    wave[4400] = 1;
    wave[4401] = -1;
    Doubles f0(10);
    std::vector<float> correlation(10 * static_cast<size_t>(voiceSizes(0, param).lagNum));
    wave2f0(wave.data(), 8000, param, f0.data(), nullptr, correlation.data());
    for (const float value : correlation) ASSERT_LE(std::abs(value), 1);
}

TEST(Voice, ParametersOutsideTheirRangesAreRefused) {
    double VOICEPARAM::*const fields[] = {&VOICEPARAM::candidateThreshold, &VOICEPARAM::voicingCost,
                                          &VOICEPARAM::lagCost, &VOICEPARAM::silenceLevel,
                                          &VOICEPARAM::fundamentalShare};
    for (const auto field : fields)
        for (const double wrong : {-101.0, 1e10, notANumber}) {
            VOICEPARAM param;
            const double fit = param.*field;
            param.*field = wrong;
            EXPECT_NE(voiceParamFault(param), nullptr) << wrong << " for " << fit;
        }
    EXPECT_EQ(fatalMessage([] { wave2f0<double>(nullptr, 0, at(3999), nullptr); }),
              "wave2f0: fs must be 4000 to 192000 Hz");
}

} // namespace
