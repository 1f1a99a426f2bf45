#include "audio/audio.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>
#include <vector>

namespace {

using Doubles = std::vector<double>;
using Ints = std::vector<int>;

Doubles filtered(const Doubles& b, const Doubles& a, Doubles x) {
    cAudio::filter(b.data(), int(b.size()), a.data(), int(a.size()), x.data(), int(x.size()));
    return x;
}

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
            EXPECT_EQ(filtered(b, a, x), y) << order << ' ' << xLen;
        }
    EXPECT_EQ(filtered({1}, {2, -0.5}, {1, 0, 0, 0}), (Doubles{1, 0.5, 0.25, 0.125})); // an impulse
    EXPECT_EQ(filtered({1}, {1, -0.5}, {1, 1, 1, 1}), (Doubles{1, 1.5, 1.75, 1.875})); // a step
}

TEST(Echo, IsACombOrNothing) {
    const struct {
        int waveLen, period; // 0: the output is the input
        double delay;
    } cases[] = {{6000, 2000, 0.25},      {2001, 2000, 0.25}, {2000, 0, 0.25},
                 {6000, 1, 1e-4},         {6000, 0, 6e-5},    {6000, 0, -1},
                 {6000, 0, std::nan("")}, {6000, 0, 1e12},    {0, 0, 0.25}};
    for (const auto& c : cases) {
        Doubles wave(size_t(c.waveLen)), out(wave), expected(wave);
        if (c.waveLen > 0) wave[0] = expected[0] = 4096;
        for (int i = c.period; c.period > 0 && i < c.waveLen; i += c.period)
            expected[size_t(i)] = 0.5 * expected[size_t(i - c.period)];
        cAudio::waveEcho(wave.data(), c.waveLen, 8000, c.delay, 0.5, out.data());
        EXPECT_EQ(out, expected) << c.waveLen << ' ' << c.delay;
    }
    const Ints wave{5, -5, INT_MAX, INT_MIN, 0, 0};
    Ints out(6);
    cAudio::waveEcho(wave.data(), 6, 2, 1.0, 0.5, out.data());
    EXPECT_EQ(out, (Ints{5, -5, INT_MAX, INT_MIN, 1 << 30, -(1 << 30)})); // 3 more and 3 less do not fit
}

TEST(Resample, FollowsARampAndEndsOnItsEnds) {
    const struct {
        Ints wave;
        int oldFs, newFs;
        Ints out;
    } cases[] = {
        {{0, 10, 20, 30, 40, 50, 60, 70, 80, 90}, 16000, 8000, {0, 20, 40, 60, 90}},
        {{0, 5, 0, -5}, 1, 2, {0, 3, 5, 3, 0, -3, -5}}, // halves away from zero
        {{1, 2, 3}, 1, 1, {1, 2, 3, 3, 3}},             // beyond the end
        {{1, 2, 3}, 1, 0, {1, 3, 3, 3}},                // infinitely far beyond
        {{1, 2, 3}, -1, 1, {1, 1, 1, 3}},               // before the beginning
        {{1, 2, 3}, 0, 0, {1, 1, 1, 3}},                // nowhere
        {{1, 2, 3}, 1, 1, {3}},
        {{}, 1, 1, {0, 0}},
    };
    for (const auto& c : cases) {
        Ints out(c.out.size(), 99);
        cAudio::waveResample(c.wave.data(), int(c.wave.size()), c.oldFs, c.newFs, out.data(),
                             int(out.size()));
        EXPECT_EQ(out, c.out) << c.wave.size() << ' ' << c.oldFs << ' ' << c.newFs;
    }
}

} // namespace
