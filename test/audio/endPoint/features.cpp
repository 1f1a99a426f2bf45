#include "audio/endPoint/made.hpp"

namespace {

TEST(Volume, ThreeMethodsAndTheirLimits) {
    const struct {
        Ints frame;
        int method;
        int volume;
    } cases[] = {{{0, 0, 12, 0}, 1, 12},
                 {{INT_MIN, INT_MAX}, 1, INT_MAX},
                 {{0, 0, 0, -3}, 2, 9}, // the mean is truncated to 0
                 {{46340, 0, 0, -46340}, 2, INT_MAX},
                 {{0, 10, 0, 10}, 3, 4},
                 {{0, 0}, 3, INT_MIN}};
    for (const auto& [frame, method, expected] : cases) {
        int volume = -1;
        wave2volume(frame.data(), lengthOf(frame), lengthOf(frame), 0, &volume, method);
        EXPECT_EQ(volume, expected) << "method " << method << ", " << text(frame);
    }
    EXPECT_EQ(fatalMessage([] { wave2volume<int>(nullptr, 0, 4, 0, nullptr, 4); }),
              "Unknown volume method=4 (line N of file ../../../../c/lib/audio/audio)");
}

TEST(Ashod, SaturatesAndRefusesOtherOrders) {
    const int wide[] = {INT_MIN, INT_MAX, INT_MIN};
    EXPECT_EQ(frame2ashod(wide, 3, 2), INT_MAX);
    const auto endWithOrder = [&](int order) { cAudio::wave2ashod(wide, 3, 3, 0, nullptr, order); };
    EXPECT_EXIT(endWithOrder(0), testing::ExitedWithCode(1), "");
    EXPECT_EXIT(endWithOrder(6), testing::ExitedWithCode(1), "");
    cAudio::wave2ashod(wide, 2, 3, 0, nullptr, 6); // no frame, no order
}

TEST(LocalAverage, EachTermIsRoundedByItself) {
    Ints three{4, 8, 4};
    Ints five{2, 1, -2, 3, -5};
    Ints large{INT_MAX, INT_MAX, INT_MAX, 0};
    for (Ints* x : {&three, &five, &large}) cAudio::localAverage(x->data(), lengthOf(*x));
    EXPECT_EQ(text(three), "4 6 4");
    EXPECT_EQ(text(five), "2 1 0 0 -5");
    EXPECT_EQ(text(large), "2147483647 2147483647 1610612736 0");
}

} // namespace
