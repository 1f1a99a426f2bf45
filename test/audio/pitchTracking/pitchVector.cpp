// What is done to pitch vectors: medians, limits, trims, interpolation, integer form.
#include "audio/audio.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

using Pitch = std::vector<double>;

TEST(PitchVector, Medians) {
    const struct {
        int order;
        Pitch filtered;
    } cases[] = {{5, {1, 9, 3, 7, 4, 7, 4}}, {4, {1, 9, 5, 5.5, 5, 7, 4}}, {7, {1, 9, 2, 4, 3, 7, 4}},
                 {8, {1, 9, 2, 8, 3, 7, 4}}, {0, {1, 9, 2, 8, 3, 7, 4}},   {-3, {1, 9, 2, 8, 3, 7, 4}}};
    for (const auto& c : cases) {
        Pitch x{1, 9, 2, 8, 3, 7, 4};
        medianFilter(x.data(), 7, c.order);
        EXPECT_EQ(x, c.filtered) << c.order;
    }
    EXPECT_EQ(getPitchMedian(Pitch{0, 60, 0, 62, 64}.data(), 5), 62.0);
    EXPECT_EQ(getPitchMedian(Pitch{0, 0}.data(), 2), 0.0);
}

TEST(PitchVector, LimitsAndTrims) {
    Pitch pitch{0, 35, 40, 70, 71};
    cAudio::limitPitch(pitch.data(), 5, 40.0F, 70.0F);
    EXPECT_EQ(pitch, (Pitch{0, 0, 40, 70, 0}));
    const struct {
        Pitch pitch;
        int first, last;
    } trims[] = {
        {{0, 0, 50, 0, 52, 0}, 2, 4}, {{0, 0, 0}, 3, 2}, {{0, 55, 0}, 1, 1}, {{}, 0, -1}, {{0, NAN}, 1, 1}};
    for (const auto& c : trims) {
        int first = -7;
        int last = -7;
        cAudio::trimPitch(c.pitch.data(), static_cast<int>(c.pitch.size()), first, last);
        EXPECT_EQ(std::pair(first, last), std::pair(c.first, c.last)) << testing::PrintToString(c.pitch);
    }
    const std::pair<Pitch, std::vector<int>> integers[] = {
        {{0, 30, 60.7, 0, 81, 61.2, 0}, {600, 0, 0, 610}}, {{34, 80}, {340, 800}}, {{}, {}}, {{0, 0}, {}}};
    for (const auto& [pv, tenths] : integers) {
        int* out = nullptr;
        int outLen = -1;
        EXPECT_TRUE(cAudio::bModifyPV(pv, out, outLen));
        EXPECT_EQ(std::vector<int>(out, out + outLen), tenths);
        std::free(out);
    }
}

TEST(PitchVector, InterpolatesExceptAcrossGaps) {
    const double x[] = {0, 10, 20};
    const double y[] = {100, 200, 0};
    const std::pair<double, double> cases[] = {{5, 150},  {12, 200}, {18, 0}, {15, 0},
                                               {-3, 100}, {20, 0},   {25, 0}};
    for (const auto& [t, value] : cases) EXPECT_EQ(cAudio::interp4pitchPeriod(x, 3, y, t), value) << t;
    EXPECT_EQ(cAudio::interp4pitchPeriod(x, 0, y, 5), 0.0);
}

} // namespace
