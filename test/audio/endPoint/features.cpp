#include "audio/audio.hpp"

#include "audio/endPoint/made.hpp"
#include "support/console.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <iostream>

namespace {

using Ints = std::vector<int>;

TEST(Volume, OfOneFrame) {
    const struct {
        Ints frame;
        int method, volume;
    } cases[] = {
        {{7, 7, 7}, 1, 0},
        {{0, 0, 10, 10}, 1, 20},
        {{1, 2}, 2, 1},
        {{-1, -2}, 2, 1},
        {{0, 0}, 3, INT_MIN},
        {{10, 0}, 3, 3}, // ln 50
        {{0, 10, 0, 10}, 3, 4},
        {{INT_MIN, INT_MAX}, 1, INT_MAX},
        {{INT_MIN, INT_MAX}, 2, INT_MAX},
        {{46340, 0, 0, -46340}, 2, INT_MAX},
        {{32767, -1, -1, 0}, 2, 805289985},
    };
    for (const auto& c : cases) {
        int volume = -1;
        double real = -1;
        wave2volume(c.frame.data(), lengthOf(c.frame), lengthOf(c.frame), 0, &volume, c.method);
        wave2volume(c.frame.data(), lengthOf(c.frame), lengthOf(c.frame), 0, &real, c.method);
        EXPECT_EQ(volume, c.volume) << "method " << c.method << ", " << c.frame[0];
        EXPECT_EQ(real, c.volume) << "method " << c.method << ", " << c.frame[0];
    }
    for (const int method : {0, 4, INT_MIN}) // reported before the frames are counted
        EXPECT_EQ(fatalMessage([&] { wave2volume(nullptr, 0, 4, 0, static_cast<int*>(nullptr), method); }),
                  "Unknown volume method=" + std::to_string(method) +
                      " (line N of file ../../../../c/lib/audio/audio)");
}

TEST(FrameFeatures, EachFrameHasItsOwnAndNoMoreAreWritten) {
    const Ints wave{5, -5, 5, -5, 0, -5, 3, 9, -1, 4};
    const struct {
        int frameSize, overlap;
        Ints zcr, ashod; // of order 1
    } cases[] = {{4, 0, {3, 1}, {30, 19}},
                 {4, 2, {3, 1, 1, 2}, {30, 20, 19, 21}},
                 {3, -1, {2, 1}, {20, 13}},
                 {11, 0, {}, {}},
                 {1, 0, Ints(10, 0), Ints(10, 0)},
                 {0, -2, {}, {}},
                 {4, 4, {}, {}},
                 {INT_MIN, INT_MIN, {}, {}},
                 {INT_MAX, 1, {}, {}},
                 {1, INT_MIN, {0}, {0}}};
    for (const auto& c : cases) {
        for (const Ints* expected : {&c.zcr, &c.ashod}) {
            Ints out(expected->size() + 1, 77);
            if (expected == &c.zcr)
                cAudio::wave2zcr(wave.data(), 10, c.frameSize, c.overlap, out.data());
            else
                cAudio::wave2ashod(wave.data(), 10, c.frameSize, c.overlap, out.data(), 1);
            EXPECT_EQ(out.back(), 77);
            out.pop_back();
            EXPECT_EQ(out, *expected) << c.frameSize << ' ' << c.overlap;
        }
    }
}

TEST(Ashod, SampleTypesOrdersAndSaturation) {
    const int frame[] = {1, 3, 2, 5, -4, 0};
    const double real[] = {1, 3, 2, 5, -4, 0};
    const int sums[] = {2 + 1 + 3 + 9 + 4, 3 + 4 + 12 + 13, 7 + 16 + 25, 23 + 41, 64, 0};
    for (int order = 1; order <= 5; ++order) {
        EXPECT_EQ(frame2ashod(frame, 6, order), sums[order - 1]) << order;
        EXPECT_EQ(frame2ashod(real, 6, order), sums[order - 1]) << order;
        EXPECT_EQ(frame2ashod(frame, order, order), 0) << order;
    }
    EXPECT_EQ(frame2ashod(frame, INT_MIN, 1), 0);
    const int wide[] = {INT_MIN, INT_MAX, INT_MIN};
    EXPECT_EQ(frame2ashod(wide, 3, 2), INT_MAX);
    const short narrow[] = {SHRT_MIN, SHRT_MAX};
    EXPECT_EQ(frame2ashod(narrow, 2, 1), SHRT_MAX);
    cAudio::wave2ashod(frame, 6, 7, 0, nullptr, 9); // no frame: the order is not looked at
}

TEST(AshodDeathTest, UnknownOrderEndsTheProcess) {
    const auto onConsole = [](std::string_view text) { std::cerr << "console: " << text; };
    for (const int order : {0, 6, INT_MIN}) {
        const Ints wave(8);
        int out = 0;
        EXPECT_EXIT((standIn::setConsole(onConsole), frame2ashod(wave.data(), 8, order)),
                    ::testing::ExitedWithCode(1), "console: Unsupported order!\n");
        EXPECT_EXIT((standIn::setConsole(onConsole), cAudio::wave2ashod(wave.data(), 8, 8, 0, &out, order)),
                    ::testing::ExitedWithCode(1), "console: Unsupported order!\n");
    }
}

TEST(LocalAverage, EachTermIsRoundedByItself) {
    const struct {
        Ints x, smooth;
    } cases[] = {{{4, 8, 4}, {4, 6, 4}},
                 {{-1, 0, -1}, {-1, 0, -1}},
                 {{2, 1, -2, 3, -5}, {2, 1, 0, 0, -5}},
                 {{1, 2}, {1, 2}},
                 {{}, {}},
                 {{INT_MAX, INT_MAX, INT_MAX, 0}, {INT_MAX, INT_MAX, 1610612736, 0}}};
    for (const auto& c : cases) {
        Ints x = c.x;
        cAudio::localAverage(x.data(), lengthOf(x));
        EXPECT_EQ(x, c.smooth);
    }
}

} // namespace
