#include "audio/voice/filter.hpp"
#include "audio/voice/made.hpp"
#include "audio/voice/track.hpp"
#include "support/recording.hpp"

namespace {

double glide(double t) {
    return 100 * std::exp2(t); // an octave each second
}

double vibrato(double t) {
    return 220 * std::exp2(40.0 / 1200 * std::sin(2 * std::numbers::pi * 5 * t));
}

/// Three octaves in six notes of half a second.
double melody(double t) {
    constexpr double notes[] = {82.4, 659.2, 110, 440, 164.8, 329.6};
    return notes[std::min<size_t>(static_cast<size_t>(2 * t), 5)];
}

/// Between words: noise where the voice rests.
Doubles speechLike(int fs) {
    Doubles wave = voiceOf(vibrato, 2, fs);
    for (size_t i = 0; i < wave.size(); ++i)
        if (i * 4 / wave.size() % 2 == 1) wave[i] = 0;
    return inNoise(wave);
}

TEST(Voice, GlidesVibratoAndMelodiesInNoiseAreFoundWithinTenCents) {
    const struct {
        const char* name;
        Contour contour;
        bool leaps;
    } songs[] = {{"glide", glide, false}, {"vibrato", vibrato, false}, {"melody", melody, true}};
    for (const int fs : {4000, 8000, 11025, 16000, 44100})
        for (const auto& song : songs) {
            if (song.leaps && fs < 8000) continue; // its high notes have six samples in a period there
            const Doubles f0 = pitchOf(inNoise(voiceOf(song.contour, song.leaps ? 3 : 2, fs)), at(fs));
            for (size_t i = 4; i + 4 < f0.size(); ++i) {
                if (song.leaps && (i + 4) % 50 <= 8) continue;
                const double t = static_cast<double>(i) / 100;
                ASSERT_LT(std::abs(cents(f0[i], song.contour(t))), 10)
                    << song.name << " at " << fs << " Hz, frame " << i << ": " << f0[i];
            }
        }
}

TEST(Voice, LevelAndSignDoNotMatter) {
    const Doubles wave = speechLike(8000);
    const Doubles f0 = pitchOf(wave, at(8000));
    EXPECT_GT(std::count(f0.begin(), f0.end(), 0.0), 90);
    EXPECT_LT(std::count(f0.begin(), f0.end(), 0.0), 110);
    for (const double factor : {0.3, -1.0, 12345.678, -1e300, 1e-290, 1e-307}) {
        Doubles scaled = wave;
        for (double& x : scaled) x *= factor;
        const Doubles again = pitchOf(scaled, at(8000));
        for (size_t i = 0; i < f0.size(); ++i)
            ASSERT_NEAR(again[i], f0[i], 1e-3) << "times " << factor << ", frame " << i;
    }
    Doubles twice = wave;
    for (double& x : twice) x = -4 * x + 0.0;
    EXPECT_EQ(pitchOf(twice, at(8000)), f0) << "powers of two change no bit";
}

TEST(Voice, SilenceBeforeAndBehindDelaysTheContourAndNoMore) {
    for (const int fs : {8000, 16000}) {
        Doubles wave = speechLike(fs);
        const Doubles f0 = pitchOf(wave, at(fs));
        wave.insert(wave.begin(), static_cast<size_t>(fs), 0.0);
        wave.insert(wave.end(), static_cast<size_t>(60 * fs), 0.0);
        const Doubles late = pitchOf(wave, at(fs));
        for (size_t i = 0; i < late.size(); ++i) {
            const bool inside = i >= 100 && i < 100 + f0.size();
            ASSERT_NEAR(late[i], inside ? f0[i - 100] : 0, 0.05) << fs << " Hz, frame " << i;
        }
    }
}

TEST(Voice, HalfTheRateGivesTheSamePitch) {
    const Recording recording = readRecording("reading16k.wav");
    const Doubles wave(recording.wave.begin(), recording.wave.end());
    std::vector<double> half;
    const wavepitch::voice::Taps taps = wavepitch::voice::lowPass(0.235, 64);
    for (size_t i = 64; i + 64 < wave.size(); i += 2) {
        double sum = static_cast<double>(taps[0]) * wave[i];
        for (size_t k = 1; k <= 64; ++k) sum += static_cast<double>(taps[k]) * (wave[i - k] + wave[i + k]);
        half.push_back(sum);
    }
    const Doubles whole = pitchOf(Doubles(wave.begin() + 64, wave.end() - 64), at(16000));
    const Doubles decimated = pitchOf(half, at(8000));
    ASSERT_EQ(whole.size(), decimated.size());
    size_t voicingDiffers = 0;
    for (size_t i = 0; i < whole.size(); ++i) {
        if ((whole[i] > 0) != (decimated[i] > 0)) {
            ++voicingDiffers;
            continue;
        }
        if (whole[i] == 0) continue;
        EXPECT_LT(std::abs(cents(whole[i], decimated[i])), 3) << "frame " << i;
    }
    EXPECT_LT(voicingDiffers, whole.size() / 200);
}

TEST(Voice, NothingWithoutPeriodsHasPitch) {
    const double infinity = std::numeric_limits<double>::infinity();
    Doubles tone = voiceOf(vibrato, 1, 8000);
    Doubles broken = tone;
    broken[4000] = notANumber;
    Doubles endless = tone;
    endless.back() = -infinity;
    const struct {
        const char* name;
        Doubles wave;
    } cases[] = {{"one sample", {5}},
                 {"two samples", {5, -5}},
                 {"silence", Doubles(8000)},
                 {"a constant", Doubles(8000, 0.1)},
                 {"a constant of the largest size", Doubles(8000, 1.7e308)},
                 {"a click",
                  [] {
                      Doubles x(8000);
                      x[4000] = 1;
                      return x;
                  }()},
                 {"a step",
                  [] {
                      Doubles x(8000);
                      std::fill_n(x.begin(), 4000, -1e308);
                      return x;
                  }()},
                 {"not-a-number", broken},
                 {"infinity", endless}};
    for (const auto& row : cases)
        for (const double freq : pitchOf(row.wave, at(8000))) ASSERT_EQ(freq, 0) << row.name;
    EXPECT_EQ(wave2f0<double>(nullptr, 0, at(8000), nullptr), 0);
    EXPECT_EQ(fatalMessage([] { wave2f0<double>(nullptr, 0, at(0), nullptr); }),
              "wave2f0: fs must be 4000 to 192000 Hz");
}

TEST(Voice, RatesRangesAndFrameRatesOfEverySizeWork) {
    for (const int fs : {4000, 7999, 15999, 22050, 48000, 192000})
        for (const double frameRate : {1.0, 33.3, 1000.0})
            for (const double minFreq : {20.0, 120.0}) {
                VOICEPARAM param = at(fs);
                param.frameRate = frameRate;
                param.minFreq = minFreq;
                param.maxFreq = voiceSizes(1, param).lagRate / 4;
                Ints wave;
                for (const double x : voiceOf([](double) { return 150.0; }, 1.2, fs))
                    wave.push_back(static_cast<int>(1e9 * x));
                const Doubles f0 = pitchOf(wave, param);
                for (size_t i = 0; i < f0.size(); ++i) {
                    const double t = static_cast<double>(i) / frameRate;
                    if (t < 0.05 || t > 1.1) continue;
                    ASSERT_NEAR(f0[i], 150, 0.2) << fs << ' ' << frameRate << ' ' << minFreq << ' ' << i;
                }
            }
}

TEST(Voice, WhatIsKeptAndTheInstructionSetChangeNoBit) {
    const Doubles wave = speechLike(16000);
    const wavepitch::voice::Layout layout(lengthOf(wave), at(16000));
    const wavepitch::voice::Source source(wave.data(), wave.size());
    std::vector<Doubles> all;
    withEveryKernel([&](const char*) {
        for (const size_t most : {size_t{0}, wave.size()}) {
            all.emplace_back(layout.frameNum);
            wavepitch::voice::track(source, layout, at(16000), most,
                                    {all.back().data(), nullptr, nullptr, nullptr});
        }
    });
    for (const Doubles& f0 : all) EXPECT_EQ(f0, all.front());
    EXPECT_EQ(all.front(), pitchOf(wave, at(16000)));
}

TEST(Voice, StrengthLiesOnTheCorrelationAtACandidate) {
    const Doubles wave = speechLike(8000);
    const VOICEPARAM param = at(8000);
    const VOICESIZES sizes = voiceSizes(lengthOf(wave), param);
    const auto frames = static_cast<size_t>(sizes.frameNum);
    const auto lags = static_cast<size_t>(sizes.lagNum);
    Doubles f0(frames);
    Doubles strength(frames);
    std::vector<float> correlation(frames * lags);
    std::vector<VOICECANDIDATES> candidates(frames);
    wave2f0(wave.data(), lengthOf(wave), param, f0.data(), strength.data(), correlation.data(),
            candidates.data());
    for (size_t i = 0; i < frames; ++i) {
        const auto isVoiced = f0[i] > 0;
        ASSERT_EQ(strength[i] > 0, isVoiced) << i;
        ASSERT_LE(strength[i], 1) << i;
        bool isCandidate = !isVoiced;
        for (int k = 0; k < candidates[i].num; ++k) {
            const auto row =
                static_cast<size_t>(std::lround(candidates[i].lag[k])) - static_cast<size_t>(sizes.minLag);
            ASSERT_NEAR(candidates[i].strength[k], correlation[i * lags + row], 0.1) << i;
            isCandidate =
                isCandidate ||
                std::abs(cents(f0[i], sizes.lagRate / static_cast<double>(candidates[i].lag[k]))) < 50;
        }
        ASSERT_TRUE(isCandidate) << i;
    }
}

TEST(Voice, ParametersOutsideTheirRangesAreNamed) {
    const struct {
        const char* field;
        std::function<void(VOICEPARAM&)> spoil;
    } rows[] = {{"fs", [](VOICEPARAM& p) { p.fs = 3999; }},
                {"fs", [](VOICEPARAM& p) { p.fs = 192001; }},
                {"minFreq", [](VOICEPARAM& p) { p.minFreq = notANumber; }},
                {"maxFreq", [](VOICEPARAM& p) { p.maxFreq = p.minFreq; }},
                {"maxFreq", [](VOICEPARAM& p) { p.maxFreq = 2001; }},
                {"frameRate", [](VOICEPARAM& p) { p.frameRate = 0.5; }},
                {"voicingThreshold", [](VOICEPARAM& p) { p.voicingThreshold = 1.5; }},
                {"candidateThreshold", [](VOICEPARAM& p) { p.candidateThreshold = -1; }},
                {"voicingCost", [](VOICEPARAM& p) { p.voicingCost = -1; }},
                {"lagCost", [](VOICEPARAM& p) { p.lagCost = notANumber; }},
                {"silenceLevel", [](VOICEPARAM& p) { p.silenceLevel = 1; }},
                {"fundamentalShare", [](VOICEPARAM& p) { p.fundamentalShare = 2; }}};
    EXPECT_EQ(voiceParamFault(VOICEPARAM()), nullptr);
    for (const auto& row : rows) {
        VOICEPARAM param;
        row.spoil(param);
        const char* fault = voiceParamFault(param);
        ASSERT_NE(fault, nullptr) << row.field;
        EXPECT_EQ(std::string(fault).find(row.field), 0U) << fault;
    }
}

} // namespace
