#include "support/audio.hpp"

namespace {

TEST(Filter, EqualsTheDifferenceEquationSampleBySample) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    for (const size_t order : {0U, 1U, 2U, 3U, 16U, 40U})
        for (const size_t xLen : {0U, 1U, 17U, 1024U, 1025U, 3000U}) {
            Doubles b(order), a(xLen % 2 == 0 ? order : order / 2), x(xLen), y(xLen);
            for (Doubles* vec : {&b, &a, &x})
                for (double& element : *vec) element = std::normal_distribution<double>(0, 0.2)(random);
            for (size_t n = 0; n < xLen; ++n) {
                double forward = 0, back = 0;
                for (size_t k = 0; k < std::min(n + 1, b.size()); ++k) forward += b[k] * x[n - k];
                for (size_t k = 1; k < std::min(n + 1, a.size()); ++k) back += a[k] * y[n - k];
                y[n] = forward - back;
            }
            cAudio::filter(b.data(), lengthOf(b), a.data(), lengthOf(a), x.data(), lengthOf(x));
            EXPECT_EQ(x, y) << order << ' ' << xLen;
        }
}

TEST(Echo, IsACombOrNothing) {
    const std::tuple<int, double, int> cases[] = {
        {6000, 0.25, 2000}, {2001, 0.25, 2000}, {6000, 1e-4, 1}, // the period, or 0: the output is the input
        {6000, 6e-5, 0},    {6000, -1, 0},      {0, 0.25, 0},    {6000, notANumber, 0}, {6000, 1e12, 0}};
    for (const auto& [waveLen, delay, period] : cases) {
        Doubles wave(static_cast<size_t>(waveLen)), out(wave.size(), 9.0), expected(wave);
        if (waveLen > 0) wave[0] = expected[0] = 4096;
        for (int i = period; period > 0 && i < waveLen; i += period)
            expected[size_t(i)] = 0.5 * expected[size_t(i - period)];
        cAudio::waveEcho(wave.data(), waveLen, 8000, delay, 0.5, out.data());
        EXPECT_EQ(out, expected) << waveLen << ' ' << delay;
    }
    const Ints wave{5, -5, INT_MAX, INT_MIN, 0, 0};
    Ints out(6);
    cAudio::waveEcho(wave.data(), 6, 2, 1.0, 0.5, out.data());
    EXPECT_EQ(out, (Ints{5, -5, INT_MAX, INT_MIN, 1 << 30, -(1 << 30)})); // 3 more and 3 less do not fit
}

TEST(Resample, FollowsARampAndEndsOnItsEnds) {
    const std::tuple<Ints, int, int, Ints> cases[] = {
        {{0, 10, 20, 30, 40, 50, 60, 70, 80, 90}, 16000, 8000, {0, 20, 40, 60, 90}},
        {{0, 5, 0, -5}, 1, 2, {0, 3, 5, 3, 0, -3, -5}}, // halves away from zero
        {{1, 2, 3}, 1, 1, {1, 2, 3, 3, 3}},             // beyond the end
        {{1, 2, 3}, 1, 0, {1, 3, 3, 3}},                // infinitely far beyond
        {{1, 2, 3}, -1, 1, {1, 1, 1, 3}},               // before the beginning
        {{1, 2, 3}, 0, 0, {1, 1, 1, 3}},                // nowhere
        {{1, 2, 3}, 1, 1, {3}},
        {{}, 1, 1, {0, 0}},
    };
    for (const auto& [wave, oldFs, newFs, expected] : cases) {
        Ints out(expected.size(), 99);
        cAudio::waveResample(wave.data(), lengthOf(wave), oldFs, newFs, out.data(), lengthOf(out));
        EXPECT_EQ(out, expected) << wave.size() << ' ' << oldFs << ' ' << newFs;
    }
}

} // namespace
