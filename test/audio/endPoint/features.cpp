#include "audio/endPoint/made.hpp"

#include <iostream>

namespace {

TEST(Volume, OfOneFrame) {
    const std::tuple<Ints, int, int> cases[] = {{{0, 0, 10, 10}, 1, 20},
                                                {{INT_MIN, INT_MAX}, 1, INT_MAX},
                                                {{1, 2}, 2, 1},
                                                {{46340, 0, 0, -46340}, 2, INT_MAX},
                                                {{32767, -1, -1, 0}, 2, 805289985},
                                                {{0, 10, 0, 10}, 3, 4},
                                                {{0, 0}, 3, INT_MIN}};
    for (const auto& [frame, method, expected] : cases) {
        int volume = -1;
        wave2volume(frame.data(), lengthOf(frame), lengthOf(frame), 0, &volume, method);
        EXPECT_EQ(volume, expected) << "method " << method << ", " << frame[0];
    }
    int none = 0; // reported before the frames are counted
    EXPECT_EQ(fatalMessage([&] { wave2volume(nullptr, 0, 4, 0, &none, 4); }),
              "Unknown volume method=4 (line N of file ../../../../c/lib/audio/audio)");
}

TEST(FrameFeatures, EachFrameHasItsOwnAndNoMoreAreWritten) {
    const Ints wave{5, -5, 5, -5, 0, -5, 3, 9, -1, 4};
    const std::tuple<int, int, Ints, Ints> cases[] = {{4, 2, {3, 1, 1, 2, 77}, {30, 20, 19, 21, 77}},
                                                      {3, -1, {2, 1, 77}, {20, 13, 77}},
                                                      {1, INT_MIN, {0, 77}, {0, 77}},
                                                      {0, -2, {77}, {77}},
                                                      {INT_MAX, 1, {77}, {77}}};
    for (const auto& [frameSize, overlap, zcr, ashod] : cases) {
        Ints counts(zcr.size(), 77), sums(counts);
        cAudio::wave2zcr(wave.data(), 10, frameSize, overlap, counts.data());
        cAudio::wave2ashod(wave.data(), 10, frameSize, overlap, sums.data(), zcr.size() == 1 ? 9 : 1);
        EXPECT_EQ(std::pair(counts, sums), std::pair(zcr, ashod)) << frameSize << ' ' << overlap;
    }
}

TEST(Ashod, SampleTypesOrdersAndSaturation) {
    const int frame[] = {1, 3, 2, 5, -4, 0};
    const int sums[] = {19, 32, 48, 64, 64};
    for (int order = 1; order <= 5; ++order) {
        EXPECT_EQ(frame2ashod(frame, 6, order), sums[order - 1]) << order;
        EXPECT_EQ(frame2ashod(frame, order, order), 0) << order;
    }
    const int wide[] = {INT_MIN, INT_MAX, INT_MIN};
    EXPECT_EQ(frame2ashod(wide, 3, 2), INT_MAX);
    for (const int order : {0, 6})
        EXPECT_EXIT((standIn::setConsole([](std::string_view text) { std::cerr << "console: " << text; }),
                     cAudio::wave2ashod(wide, 3, 3, 0, nullptr, order)),
                    ::testing::ExitedWithCode(1), "console: Unsupported order!\n");
}

TEST(LocalAverage, EachTermIsRoundedByItself) {
    const std::pair<Ints, Ints> cases[] = {
        {{}, {}},
        {{2, 1, -2, 3, -5}, {2, 1, 0, 0, -5}},
        {{INT_MAX, INT_MAX, INT_MAX, 0}, {INT_MAX, INT_MAX, 1610612736, 0}}};
    for (auto [x, smooth] : cases) {
        cAudio::localAverage(x.data(), lengthOf(x));
        EXPECT_EQ(x, smooth);
    }
}

} // namespace
