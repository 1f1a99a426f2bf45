#include "audio/waveform/resampling.hpp"
#include "support/audio.hpp"

namespace {

TEST(Filter, EqualsTheDifferenceEquationSampleBySample) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::normal_distribution<double> small(0, 0.02);
    for (const size_t order : {0U, 1U, 3U, 40U})
        for (const size_t xLen : {0U, 1U, 2059U}) {
            Doubles b(order), a(order + xLen % 3), x(xLen), y(xLen);
            for (Doubles* vec : {&b, &a, &x})
                for (double& element : *vec) element = small(random);
            for (size_t n = 0; n < xLen; ++n) {
                double back = 0;
                for (size_t k = 0; k <= n && k < b.size(); ++k) y[n] += b[k] * x[n - k];
                for (size_t k = 1; k <= n && k < a.size(); ++k) back += a[k] * y[n - k];
                y[n] -= back;
            }
            cAudio::filter(b.data(), lengthOf(b), a.data(), lengthOf(a), x.data(), lengthOf(x));
            EXPECT_EQ(x, y) << order << ' ' << xLen;
        }
}

TEST(Echo, ComesBackHalfAsLoudOrNotAtAll) {
    const auto echoed = [](double samples) {
        Doubles out(5, 9);
        cAudio::waveEcho(Doubles{8, 0, 0, 0, 0}.data(), 5, 8, samples / 8, 0.5, out.data());
        return text(out);
    };
    EXPECT_EQ(echoed(2), "8 0 4 0 2");
    EXPECT_EQ(echoed(0.9), "8 4 2 1 0.5");
    EXPECT_EQ(echoed(4), "8 0 0 0 4");
    EXPECT_EQ(echoed(9), "8 0 0 0 0");
    EXPECT_EQ(echoed(0.4), "8 0 0 0 0");
    EXPECT_EQ(echoed(notANumber), "8 0 0 0 0");
    Ints out(5);
    cAudio::waveEcho(Ints{5, -5, INT_MAX, INT_MIN, 1}.data(), 5, 2, 1, 0.5, out.data());
    EXPECT_EQ(text(out), "5 -5 2147483647 -2147483648 1073741825"); // sums saturate
}

TEST(Resample, FollowsTheWaveformAndEndsOnItsEnds) {
    const auto resampled = [](const Ints& wave, int oldFs, int newFs) {
        Ints out(5, 99);
        cAudio::waveResample(wave.data(), lengthOf(wave), oldFs, newFs, out.data(), 5);
        Ints parts = out;
        if (!wave.empty())
            wavepitch::waveform::Resampling<int>{wave.data(), lengthOf(wave), oldFs, newFs, 5}.read(
                2, 3, &parts[2]);
        EXPECT_EQ(parts, out) << "in stretches";
        return text(out);
    };
    EXPECT_EQ(resampled({0, 10, 20, 30, 40, 50, 60, 70}, 16000, 8000), "0 20 40 60 70");
    EXPECT_EQ(resampled({0, -5, 9, -1}, 1, 2), "0 -3 -5 2 -1"); // halves away from zero
    EXPECT_EQ(resampled({1, 2, 3}, 5, 2), "1 3 3 3 3");         // beyond the end
    EXPECT_EQ(resampled({1, 2, 3}, 0, 0), "1 1 1 1 3");         // nowhere
    EXPECT_EQ(resampled({}, 1, 1), "0 0 0 0 0");
}

} // namespace
