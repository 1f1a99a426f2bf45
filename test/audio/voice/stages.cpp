// The stages of the tracker against their definitions. That the kernels of every version have the same bits
// is seen in the whole (voice.cpp).
#include "audio/voice/made.hpp"

#include "audio/voice/path.hpp"
#include "audio/voice/refinement.hpp"

namespace {

using namespace wavepitch::voice;

/// The band signal of a recording.
struct BandOf {
    Doubles wave;
    Layout layout;
    Source source;
    Band band;

    BandOf(const Doubles& recording, const VOICEPARAM& param)
        : wave(recording), layout(lengthOf(wave), param), source(wave.data(), wave.size()),
          band(BandFilter(source, layout, param.minFreq), layout, 1U << 20U) {}
};

/// A second of a tone.
Doubles tone(double freq, double amplitude, int fs) {
    Doubles wave(static_cast<size_t>(fs));
    for (size_t i = 0; i < wave.size(); ++i)
        wave[i] = amplitude * std::sin(2 * std::numbers::pi * freq * static_cast<double>(i) / fs);
    return wave;
}

TEST(VoiceBand, PassesFrom60To2000HzWithoutDelay) {
    const struct {
        int fs;
        double freq, gain;
    } cases[] = {{8000, 30, 0.113},   {8000, 60, 0.505}, {8000, 100, 0.966},   {8000, 1000, 1},
                 {8000, 1800, 0.866}, {8000, 3000, 0},   {48000, 1800, 0.853}, {48000, 6500, 0}};
    for (const auto& [fs, freq, gain] : cases) {
        BandOf of(tone(freq, 0.75, fs), at(fs));
        const Doubles expected = tone(freq, 0.75 * gain, 8000);
        const float* x = of.band.read(2001, 1000);
        for (size_t i = 0; i < 1000; ++i)
            ASSERT_NEAR(double(x[i]), expected[2001 + i], 0.002) << freq << " Hz at " << fs;
    }
}

TEST(VoiceBand, IsTheSameFromWhereverItIsRead) {
    BandOf of(tone(60, 0.75, 16000), at(16000));
    BandFilter filter(of.source, of.layout, 60);
    float whole[200];
    filter.run(-100, 200, whole);
    for (int first = -100; first < 80; ++first) {
        float part[20];
        filter.run(first, 20, part);
        for (int i = 0; i < 20; ++i) ASSERT_EQ(part[i], whole[first + 100 + i]) << first << " + " << i;
    }
}

TEST(VoiceSource, ReadsSamplesSeveralApartAndZerosAround) {
    const Doubles wave{1, 7, 3, 8, 2, 9, 5};
    const Source source(wave.data(), wave.size());
    float all[20];
    source.read(-6, 1, 20, all);
    EXPECT_EQ(std::count(all, all + 20, 0.0F), 20 - lengthOf(wave) + 1); // 5 is their mean
    for (const size_t step : {2U, 3U, 5U})
        for (const size_t first : {0U, 1U, 4U}) {
            float some[3];
            source.read(std::int64_t(first) - 6 + 4, step, 3, some);
            for (size_t k = 0; k < 3; ++k) EXPECT_EQ(some[k], all[4 + first + k * step]) << step;
        }
}

TEST(VoiceCharacter, AFundamentalHasAHundredthOfTheEnergyBelow250Hz) {
    const struct {
        double freq, amplitude;
        bool isFundamental;
    } cases[] = {{150, 0.052, true}, {150, 0.048, false}, {290, 0.3, false}};
    for (const auto& [freq, amplitude, isFundamental] : cases) {
        Doubles wave = tone(freq, amplitude, 8000);
        const Doubles high = tone(1000, 0.5, 8000);
        std::transform(wave.begin(), wave.end(), high.begin(), wave.begin(), std::plus());
        BandOf of(wave, at(8000));
        EXPECT_EQ(characterOf(of.band, of.layout, at(8000)).hasFundamental, isFundamental) << amplitude;
        VOICEPARAM above = at(8000);
        above.minFreq = 300; // no fundamental below 250 Hz is missed
        EXPECT_TRUE(characterOf(of.band, of.layout, above).hasFundamental) << amplitude;
    }
}

TEST(VoiceCharacter, OnlyFramesWithin30DecibelsTellHowLoudItIs) {
    Doubles wave = tone(500, 0.75, 8000);
    // A tenth of a second is loud, four are 20 dB below, five 40 dB.
    for (size_t i = 800; i < wave.size(); ++i) wave[i] *= i < 4000 ? 0.1 : 0.01;
    BandOf of(wave, at(8000));
    EXPECT_NEAR(characterOf(of.band, of.layout, at(8000)).loudPower, 0.75 * 0.75 / 2, 0.01);
}

/// Of the windows of a lag around a sample.
double plainCorrelation(const float* centre, size_t windowLen, size_t lag, double floor) {
    const float* first = centre - (windowLen + lag) / 2;
    double products = 0;
    double energies = 2 * floor;
    for (size_t j = 0; j < windowLen; ++j) {
        const auto x = double(first[j]);
        const auto y = double(first[j + lag]);
        products += x * y;
        energies += x * x + y * y;
    }
    return 2 * products / energies;
}

TEST(VoiceCandidates, AreTheFirstEightMaximaOfTheCorrelation) {
    const struct {
        int fs;
        double maxFreq, freq;
        int num;
    } cases[] = {{8000, 800, 790, 8}, {8083, 800, 300, 5}, {8200, 1000, 120, 2}};
    withEveryKernel([&](const char* version) {
        for (const auto& [fs, maxFreq, freq, num] : cases) {
            SCOPED_TRACE(std::to_string(fs) + " Hz, " + version);
            VOICEPARAM param = at(fs);
            param.maxFreq = maxFreq;
            BandOf of(tone(freq, 0.75, fs), param);
            const Layout& layout = of.layout;
            std::vector<float> correlation(layout.frameNum * layout.lagNum);
            const auto all = findCandidates(of.band, layout, {0.5, true}, param, correlation.data());
            const double floor = static_cast<double>(layout.windowLen) * 0.5 * std::pow(10, -2.6);
            for (size_t i = 0; i < correlation.size(); ++i) {
                const size_t lag = layout.minLag + i % layout.lagNum;
                const float* centre = of.band.read(layout.centre(i / layout.lagNum) - 250, 500) + 250;
                ASSERT_NEAR(double(correlation[i]), plainCorrelation(centre, layout.windowLen, lag, floor),
                            1e-5)
                    << "frame " << i / layout.lagNum << ", lag " << lag;
            }
            ASSERT_EQ(all[50].num, num);
            for (int k = 0; k < num; ++k) {
                EXPECT_NEAR(double(all[50].lag[k]), (k + 1) * fs / freq, 0.1) << k;
                EXPECT_NEAR(double(all[50].strength[k]), 0.9955, 0.004) << k;
            }
            param.candidateThreshold = 1;
            EXPECT_EQ(findCandidates(of.band, layout, {0.5, true}, param, nullptr)[50].num, 0);
        }
    });
}

TEST(VoiceRefinement, FindsTheFrequencyFromTheLagBeside) {
    VOICEPARAM high = at(8000); // their window is longer than four of the longest periods
    high.minFreq = 1900;
    high.maxFreq = 2000;
    for (const double freq : {62.0, 118.5, 251.3, 480.0, 777.0, 1950.0}) {
        const Layout layout(8000, freq > 1900 ? high : at(8000));
        const Doubles wave = voiceOf(freq, 1, 8000);
        const std::vector<float> x(wave.begin(), wave.end());
        for (const double start : {0.97, 1.0, 1.03})
            EXPECT_LT(cents(Refinement(layout).refined(&x[4000], start * freq), freq), 0.2)
                << freq << " Hz from " << start;
    }
}

using Frames = std::vector<VOICECANDIDATES>;
using Path = std::vector<std::uint8_t>;

/// The best of all paths through four frames of at most three candidates.
Path bestOf(const Frames& frames, double threshold, const std::function<double(double)>& loss) {
    Path best;
    double most = -1e9;
    for (unsigned code = 0; code < 256; ++code) {
        Path path;
        double score = 0;
        double before = -1; // octave of the lag before, 0 for none
        for (size_t i = 0; i < 4; ++i) {
            const unsigned k = code >> 2 * i & 3;
            const bool isVoiced = k < 3;
            const double octave = isVoiced ? std::log2(double(frames[i].lag[k])) : 0;
            score += isVoiced ? double(frames[i].strength[k]) - loss(octave) : threshold;
            if (before >= 0 && isVoiced != (before > 0)) score -= 0.3;
            if (before > 0 && isVoiced) score -= 2 * (octave - before) * (octave - before);
            before = octave;
            path.push_back(isVoiced ? std::uint8_t(k) : unvoiced);
        }
        if (score <= most) continue;
        most = score;
        best = path;
    }
    return best;
}

TEST(VoicePath, IsTheBestOfAllPaths) {
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    std::uniform_real_distribution<float> strength(0.2F, 1);
    std::uniform_real_distribution<float> anyOctave(4, 7);
    const double centre = std::log2(8000 / std::sqrt(60.0 * 800));
    for (int run = 0; run < 1000; ++run) {
        Frames frames(4);
        for (VOICECANDIDATES& frame : frames) {
            frame.num = int(random() % 4);
            for (int k = 0; k < 3; ++k) {
                frame.strength[k] = k < frame.num ? strength(random) : -99; // none is taken
                frame.lag[k] = std::exp2(anyOctave(random));
            }
        }
        const bool isFull = run % 2 == 0;
        const double threshold = isFull ? 0.45 : 0.4;
        Path path = bestOf(frames, threshold,
                           [&](double octave) { return (isFull ? 0.1 : 0.03) * (octave - centre); });
        Doubles octaves;
        for (size_t i = 0; i < 4; ++i)
            if (path[i] != unvoiced) octaves.push_back(std::log2(double(frames[i].lag[path[i]])));
        std::sort(octaves.begin(), octaves.end());
        if (!octaves.empty()) {
            const double median = octaves[octaves.size() / 2];
            const double low = isFull ? std::min(median - 0.7, octaves.front()) : median;
            const double high = isFull ? std::max(median + 0.7, octaves.back()) : median;
            path = bestOf(frames, threshold, [&](double octave) {
                const double beyond = std::max({0.0, low - octave, octave - high});
                return (isFull ? 0.05 : 0.03) * (octave - median) + (isFull ? 0.2 : 0.1) * beyond * beyond;
            });
        }
        EXPECT_EQ(bestPath(frames, Layout(600, at(8000)), {1, isFull}, at(8000)), path) << run;
    }
}

} // namespace
