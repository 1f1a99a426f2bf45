// What is done to a frame's pitch function before the path search and to a pitch vector after it.
#include "audio/pitchTracking/loudest.hpp"
#include "audio/pitchTracking/soundMask.hpp"
#include "support/audio.hpp"

namespace {

TEST(Candidates, AreStrictExtremaOrAllLagsInThePitchRange) {
    struct {
        PF_TYPE pfType;
        int dpUseLocalOptim;
        float minPitch, maxPitch;
        Doubles pf;
        Ints lags;
    } const cases[] = {
        {PF_AMDF, 1, 30, 200, {9, 2, 2, 6, 1, 4}, {2, 4}},
        {PF_ACF, 1, 30, 200, {10, 4, 6, 6, 6, 2, 5}, {3}},
        {PF_AMDF, 1, 91.35F, 100.19F, {9, 1, 2, 1, 2, 1, 2, 1, 2}, {3, 5}},
        {PF_ACF, 2, 30, 200, Doubles(4), {1, 2, 3}},
        {PF_ACF, 0, 80, 84, Doubles(128), {8, 9, 10}},
        {PF_ACF, 2, 0, 84, Doubles(128), {}},
    };
    PTPARAM p = trackingDefaults(8000, PF_AMDF);
    for (const auto& [pfType, local, minPitch, maxPitch, pf, expected] : cases) {
        p.pfType = pfType;
        p.dpUseLocalOptim = local;
        p.minPitch = minPitch;
        p.maxPitch = maxPitch;
        Ints lags(pf.size());
        lags.resize(size_t(pf2ppc(pf.data(), lengthOf(pf), p, lags.data())));
        EXPECT_EQ(lags, expected) << minPitch << ": " << text(pf);
    }
}

TEST(Clarity, ComparesTheExtremumWithItsFunction) {
    const Doubles peak{100, 80, 80, 60, 70, 75};
    struct {
        PF_TYPE pfType;
        Doubles pf;
        int minIndex, maxIndex;
        double clarity, pitch;
    } const cases[] = {
        {PF_ACF, peak, INT_MIN, INT_MAX, 0.75, 91.35},
        {PF_ACF, peak, 1, 4, 0.7, 95.2131},
        {PF_ACF, peak, 4, 3, 0, 0},                    // no lag to search
        {PF_ACF, {50, 40, 60, 60}, 1, 3, 0, 107.2131}, // above lag 0; of equals the first
        {PF_ACF, {50, 40, -9, -8}, 1, 3, 0, 100.1935}, // below 0
        {PF_ACF, {0, -1, 3}, 1, 2, 0, 107.2131},
        {PF_AMDF, {0, 2, 2, 8, 6}, 1, 4, 0.25, 95.2131},
        {PF_AMDF, {0, 0, 0}, 1, 2, 0, 119.2131},
        {PF_AMDF, {0, 1, 2, 3}, 2, 3, 1 - 2.0 / 3, 107.2131}, // never falls: from minIndex on
    };
    PTPARAM p = trackingDefaults(8000, PF_AMDF);
    for (const auto& [pfType, pf, minIndex, maxIndex, expected, pitch] : cases) {
        p.pfType = pfType;
        p.minIndex = minIndex;
        p.maxIndex = maxIndex;
        double clarity = -1.0;
        EXPECT_NEAR(pf2pitchClarity(pf.data(), lengthOf(pf), p, &clarity), pitch, 1e-4) << text(pf);
        EXPECT_NEAR(clarity, expected, 1e-7) << text(pf);
        int fixedPoint = -1;
        const Ints whole(pf.begin(), pf.end());
        EXPECT_NEAR(pf2pitchClarity(whole.data(), lengthOf(pf), p, &fixedPoint), pitch * 1024, 1.0);
        EXPECT_EQ(fixedPoint, static_cast<int>(expected * 1024)) << text(pf);
    }
}

TEST(Stages, RefuseUnknownTypesAndDumpCandidates) {
    PTPARAM p = trackingDefaults(8000, PF_ACF);
    PPC candidate{40, 5.5, -1, 0.0};
    STRUCT_A frame{1, -1, &candidate};
    int whole = 0;
    A2pitchByDp(&frame, 1, p, &whole);
    EXPECT_EQ(whole, 56678); // 1024 times 55.35 semitones, truncated
    const ConsoleCapture console;
    cAudio::printA(&frame, 1);
    EXPECT_EQ(console.text(), "A[0].ppcLen=1\n\tppc[0]: pfValue=5, totalDist=22\n");
    p.pfType = PF_TYPE{7};
    const std::string unknown = "Unknown ptParam.pfType=7 (line N of file ../../../../c/lib/audio/audio)";
    const double pf = 0.0;
    EXPECT_EQ(fatalMessage([&] { pf2ppc(&pf, 1, p, &whole); }), unknown);
    EXPECT_EQ(fatalMessage([&] { pf2pitchClarity(&pf, 1, p, nullptr); }), unknown);
    EXPECT_EQ(fatalMessage([&] { A2pitchByDp(&frame, 1, p, &whole); }), unknown);
}

TEST(LargestMagnitude, IsThatOfTheWholeMatrix) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    PTPARAM p = trackingDefaults(8000, PF_AMDF);
    p.frameSize = 20;
    p.overlap = 5;
    for (int round = 0; round < 1000; ++round) {
        p.pfType = PF_TYPE{round % 2};
        Ints wave;
        for (const double sample : randomDoubles(random, 200, 1, 100 + unsigned(round)))
            wave.push_back((static_cast<int>(sample) - 100) * (1 + lengthOf(wave) / 20 % 3));
        wavepitch::framing::IntSamples samples(wave.data(), lengthOf(wave));
        const wavepitch::pitchTracking::FramedWave recording(samples, p);
        Doubles values(size_t(recording.frameNum) * 18);
        recording.pitchFunctions(0, {values.data(), recording.frameNum, 18});
        EXPECT_EQ(largestMagnitude(recording, 18), *std::max_element(values.begin(), values.end())) << round;
    }
}

TEST(SoundMask, HasTheFramesWhoseMiddlesAreNearest) {
    PTPARAM p{};
    p.frameSize = 640;
    p.overlap = 480;
    EPDPARAM epdParam{};
    epdParam.frameSize = 401;
    epdParam.overlap = 81;
    // The middles of a detector's frames: 200, 520, 840, ...; of pitch frames: 320, 480, 640, ...
    struct {
        SEGMENT segment;
        const char* mask;
    } const cases[] = {{{0, 0, 1, 1}, "1 0 0 0 0 0"},
                       {{0, 1, 2, 1}, "1 1 0 0 0 0"},
                       {{2, 9, 8, 1}, "0 0 0 1 1 1"},
                       {{4, 9, 6, 1}, "0 0 0 0 0 0"}};
    for (const auto& [segment, mask] : cases)
        EXPECT_EQ(text(wavepitch::pitchTracking::soundMask(&segment, 1, epdParam, p, 6)), mask);
}

TEST(PitchVector, MediansOfAnyOrderAreThoseOfEachSpan) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    Doubles pitch = randomDoubles(random, 900, 1, 40);
    pitch[750] = -0.0;
    pitch[751] = notANumber;
    for (const int order : {4, 5, 100, 101, 901}) {
        Doubles filtered = pitch;
        medianFilter(filtered.data(), 900, order);
        for (int i = 0; i < 900; ++i) {
            const double* middle = &pitch[size_t(i)];
            const bool isWhole = i >= order / 2 && i < 900 - order / 2;
            const double expected = isWhole ? vecMedian(middle - order / 2, order) : *middle;
            EXPECT_TRUE(isSame(filtered[size_t(i)], expected)) << order << ' ' << i;
        }
    }
    EXPECT_EQ(getPitchMedian(Doubles{0, 60, 0, 62, 64}.data(), 5), 62.0);
    EXPECT_EQ(getPitchMedian(pitch.data(), -1), 0.0);
}

TEST(PitchVector, IsInterpolatedButNotAcrossGaps) {
    const double x[] = {0, 10, 20, 30, 30};
    const double y[] = {100, 200, 0, 50, 80};
    const std::pair<double, double> cases[] = {{-3, 100}, {2, 120}, {12, 200}, {15, 0},
                                               {25, 50},  {30, 80}, {31, 80}};
    for (const auto& [t, value] : cases) EXPECT_EQ(cAudio::interp4pitchPeriod(x, 5, y, t), value) << t;
    EXPECT_EQ(cAudio::interp4pitchPeriod(x, 0, y, 0), 0.0);
}

TEST(PitchVector, IntegerFormIsLimitedAndTrimmed) {
    struct {
        Doubles pitch;
        Ints ends; // of what is not 0
        Ints tenths;
    } const cases[] = {{{0, 33.9, 34, 60.7, 0, 80.1, 80, 0}, {1, 6}, {340, 600, 0, 0, 800}},
                       {{0, 0, 0}, {3, 2}, {}}};
    for (const auto& [pitch, expected, tenths] : cases) {
        Ints ends{-7, -7};
        cAudio::trimPitch(pitch.data(), lengthOf(pitch), ends[0], ends[1]);
        EXPECT_EQ(ends, expected) << text(pitch);
        int* out = nullptr;
        int outLen = -1;
        EXPECT_TRUE(cAudio::bModifyPV(pitch, out, outLen));
        EXPECT_EQ(Ints(out, out + outLen), tenths) << text(pitch);
        std::free(out);
    }
}

} // namespace
