#include "support/audio.hpp"

namespace {

TEST(Framing, CountsWholeFramesAndStartedOnes) {
    const int cases[][5] = {{1000, 256, 128, 6, 8},
                            {0, 256, 200, -3, 0},
                            {1000, 256, 256, 0, 0},
                            {INT_MAX, 1, INT_MIN + 1, 1, 1},
                            {INT_MAX, INT_MIN + 1, INT_MIN, INT_MAX, INT_MAX}};
    for (const auto& [waveLen, frameSize, overlap, whole, started] : cases) {
        EXPECT_EQ(cAudio::getFrameNum2(waveLen, frameSize, overlap), whole) << overlap;
        EXPECT_EQ(cAudio::getFrameNum(waveLen, frameSize, overlap), started) << overlap;
    }
    Ints start(4, -1);
    cAudio::buffer2(640, 256, 128, start.data());
    EXPECT_EQ(text(start), "0 128 256 384");
}

TEST(Framing, BufferHasZerosWhereThereIsNoSample) {
    const auto buffered = [](int waveLen, int frameSize, int overlap) {
        const int wave[] = {1, 2, 3, 4, 5};
        Ints out(8, 9);
        cAudio::bufferXXX(wave, waveLen, frameSize, overlap, out.data());
        return text(out);
    };
    EXPECT_EQ(buffered(5, 4, 1), "0 1 2 3 3 4 5 0");
    EXPECT_EQ(buffered(2, 4, 3), "0 0 0 1 0 0 1 2");
    EXPECT_EQ(buffered(5, 2, -2), "3 4 0 0 9 9 9 9"); // a gap before each frame
    EXPECT_EQ(buffered(1, 4, 2), "0 0 1 0 9 9 9 9");
    EXPECT_EQ(buffered(5, 1, 0), "1 2 3 4 5 9 9 9");
    EXPECT_EQ(buffered(5, -1, -2), "9 9 9 9 9 9 9 9");
}

TEST(Framing, FramesLieAroundTheirCentres) {
    EXPECT_EQ(cAudio::frame2sampleIndex(3, 256, 128), 511);
    EXPECT_EQ(cAudio::frame2sampleIndex(3, 5, 3), 7);
    EXPECT_EQ(cAudio::frame2sampleIndex(INT_MAX, 5, 3), INT_MAX);
    EXPECT_EQ(cAudio::frame2sampleIndex(3, 5, 5), 0);
    EXPECT_EQ(cAudio::sample2frameIndex(0, 256, 200), 0);
    EXPECT_EQ(cAudio::sample2frameIndex(2, 5, 3), 0);
    EXPECT_EQ(cAudio::sample2frameIndex(3, 5, 3), 1);
    EXPECT_EQ(cAudio::sample2frameIndex(33554435, 5, 3), 16777216); // in single precision
    EXPECT_EQ(cAudio::sample2frameIndex(99, 5, 5), 0);
}

} // namespace
