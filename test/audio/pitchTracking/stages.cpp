// What is done to a frame's pitch function before the path search and to a pitch vector after it.
#include "support/audio.hpp"

namespace {

TEST(Candidates, AreStrictExtremaOrAllLagsInThePitchRange) {
    const std::tuple<int, int, float, float, Doubles, Ints> cases[] = {
        {PF_AMDF, 1, 30, 200, {9, 5, 2, 2, 6, 7, 3, 1, 4}, {3, 7}}, // pfType, dpUseLocalOptim, pitch range
        {PF_ACF, 1, 30, 200, {10, 4, 6, 6, 6, 2, 5}, {3}},
        {PF_AMDF, 1, 30, 200, {3, 1, notANumber, 2, 1, 2}, {4}},
        {9, 0, 30, 200, Doubles(4), {1, 2, 3}},
        {9, 0, 80, 84, Doubles(128), {8, 9, 10}},
        {9, 0, 0, 84, Doubles(128), {}},
        {9, 0, 30, -1, Doubles(128), {}},
    };
    PTPARAM p = trackingDefaults(8000, PF_AMDF);
    for (const auto& [pfType, local, minPitch, maxPitch, pf, expected] : cases) {
        p.pfType = PF_TYPE{pfType};
        p.dpUseLocalOptim = local;
        p.minPitch = minPitch;
        p.maxPitch = maxPitch;
        Ints lags(pf.size());
        lags.resize(size_t(pf2ppc(pf.data(), lengthOf(pf), p, lags.data())));
        EXPECT_EQ(lags, expected) << minPitch << ' ' << testing::PrintToString(pf);
    }
}

TEST(Clarity, ComparesTheExtremumWithItsFunction) {
    const Doubles peak{100, 80, 60, 70, 90, 50};
    const std::tuple<PF_TYPE, Doubles, int, int, double, double> cases[] = {
        {PF_ACF, peak, 1, 5, 0.9, 95.2131}, // minIndex, maxIndex; clarity, pitch
        {PF_AMDF, {0, 50, 80, 60, 10, 40, 70}, 1, 6, 0.875, 95.2131},
        {PF_ACF, peak, 4, 3, 0, 0}, // no lag to search
        {PF_ACF, peak, INT_MIN, INT_MAX, 0.9, 95.2131},
        {PF_ACF, {50, 40, 60, 60}, 1, 3, 0, 107.2131}, // above lag 0; of equals the first
        {PF_ACF, {50, 40, -9, -8}, 1, 3, 0, 100.1935}, // below 0
        {PF_AMDF, {0, 0, 0}, 1, 2, 0, 119.2131},
        {PF_AMDF, {0, 1, 2, 3}, 2, 3, 1 - 2.0 / 3, 107.2131}, // never falls: from minIndex on
    };
    PTPARAM p = trackingDefaults(8000, PF_AMDF);
    for (const auto& [pfType, pf, minIndex, maxIndex, expected, pitch] : cases) {
        p.pfType = pfType;
        p.minIndex = minIndex;
        p.maxIndex = maxIndex;
        double clarity = -1.0;
        EXPECT_NEAR(pf2pitchClarity(pf.data(), lengthOf(pf), p, &clarity), pitch, 1e-4)
            << testing::PrintToString(pf);
        EXPECT_NEAR(clarity, expected, 1e-7) << testing::PrintToString(pf);
        int fixedPoint = -1;
        const Ints whole(pf.begin(), pf.end());
        EXPECT_NEAR(pf2pitchClarity(whole.data(), lengthOf(pf), p, &fixedPoint), pitch * 1024, 1.0);
        EXPECT_EQ(fixedPoint, static_cast<int>(expected * 1024)) << testing::PrintToString(pf);
    }
}

TEST(Stages, UnknownTypesFixedPointAndDump) {
    PTPARAM p = trackingDefaults(8000, PF_ACF);
    PPC candidate{40, 5.0, -1, 0.0};
    STRUCT_A frame{1, -1, &candidate};
    double pitch = 0.0;
    int whole = 0;
    p.pfType = PF_TYPE{7};
    const std::string unknown = "Unknown ptParam.pfType=7 (line N of file ../../../../c/lib/audio/audio)";
    EXPECT_EQ(fatalMessage([&] { pf2ppc(&pitch, 1, p, &whole); }), unknown);
    EXPECT_EQ(fatalMessage([&] { pf2pitchClarity(&pitch, 1, p, nullptr); }), unknown);
    EXPECT_EQ(fatalMessage([&] { A2pitchByDp(&frame, 1, p, &pitch); }), unknown);
    p.pfType = PF_ACF;
    A2pitchByDp(&frame, 1, p, &pitch);
    A2pitchByDp(&frame, 1, p, &whole);
    EXPECT_EQ(whole, static_cast<int>(pitch * 1024));
    const ConsoleCapture console;
    cAudio::printA(&frame, 1);
    EXPECT_EQ(console.text(), "A[0].ppcLen=1\n\tppc[0]: pfValue=5, totalDist=20\n");
}

TEST(PitchVector, MediansAndInterpolation) {
    const Doubles pitch{1, 9, 2, 8, 3, 7, 4};
    const std::pair<int, Doubles> cases[] = {
        {5, {1, 9, 3, 7, 4, 7, 4}}, {4, {1, 9, 5, 5.5, 5, 7, 4}}, {8, pitch}, {0, pitch}};
    for (const auto& [order, filtered] : cases) {
        Doubles x = pitch;
        medianFilter(x.data(), 7, order);
        EXPECT_EQ(x, filtered) << order;
    }
    EXPECT_EQ(getPitchMedian(Doubles{0, 60, 0, 62, 64}.data(), 5), 62.0);
    const double x[] = {0, 10, 20};
    const double y[] = {100, 200, 0};
    for (const auto& [t, value] : {std::pair(5, 150), {12, 200}, {15, 0}, {-3, 100}, {20, 0}})
        EXPECT_EQ(cAudio::interp4pitchPeriod(x, 3, y, t), value) << t;
}

TEST(PitchVector, LongMediansAreThoseOfEachSpan) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    const double rare[] = {-0.0, notANumber, HUGE_VAL};
    Doubles pitch;
    for (int i = 0; i < 900; ++i)
        pitch.push_back(i > 700 && i % 50 < 3 ? rare[i % 50] : double(random() % 40) / 3);
    for (const int order : {99, 100, 101, 160}) {
        Doubles filtered = pitch;
        medianFilter(filtered.data(), 900, order);
        for (int i = order / 2; i < 900 - order / 2; ++i) {
            const double expected = vecMedian(&pitch[size_t(i - order / 2)], order);
            EXPECT_TRUE(isSame(filtered[size_t(i)], expected)) << order << ' ' << i;
        }
    }
}

TEST(PitchVector, IntegerFormIsLimitedAndTrimmed) {
    const std::tuple<Doubles, Ints, Ints> cases[] = {
        {{0, 33.9, 60.7, 0, 80.1, 61.2, 0}, {1, 5}, {600, 0, 0, 610}},
        {{0, 0, 0}, {3, 2}, {}},
        {{0, notANumber}, {1, 1}, {0}}};
    for (const auto& [pitch, expected, tenths] : cases) {
        Ints ends{-7, -7};
        cAudio::trimPitch(pitch.data(), lengthOf(pitch), ends[0], ends[1]);
        EXPECT_EQ(ends, expected) << testing::PrintToString(pitch);
        int* out = nullptr;
        int outLen = -1;
        EXPECT_TRUE(cAudio::bModifyPV(pitch, out, outLen));
        EXPECT_EQ(Ints(out, out + outLen), tenths);
        std::free(out);
    }
}

} // namespace
