#include "support/audio.hpp"

#include <numeric>

namespace {

TEST(Framing, Counts) {
    const int cases[][5] = {{1000, 256, 128, 6, 8}, {256, 256, 128, 1, 2},      {200, 256, 128, 0, 2},
                            {0, 256, 200, -3, 0},   {1000, 256, -44, 3, 4},     {1000, 256, 256, 0, 0},
                            {1000, 256, 300, 0, 0}, {INT_MAX, 1, INT_MIN, 1, 1}};
    for (const auto& [waveLen, frameSize, overlap, whole, started] : cases) {
        EXPECT_EQ(cAudio::getFrameNum2(waveLen, frameSize, overlap), whole) << waveLen << ' ' << overlap;
        EXPECT_EQ(cAudio::getFrameNum(waveLen, frameSize, overlap), started) << waveLen << ' ' << overlap;
    }
    Ints start(7, -1);
    cAudio::buffer2(1000, 256, 128, start.data());
    EXPECT_EQ(start, (Ints{0, 128, 256, 384, 512, 640, -1}));
}

TEST(Framing, BufferHasEachSampleInItsPlaceAndZerosElsewhere) {
    Ints wave(30);
    std::iota(wave.begin(), wave.end(), 1);
    for (int waveLen = 0; waveLen <= 30; ++waveLen)
        for (int frameSize = -2; frameSize < 9; ++frameSize)
            for (int overlap = -3; overlap <= frameSize; ++overlap) {
                const int step = frameSize - overlap;
                const int frameNum = cAudio::getFrameNum(waveLen, frameSize, overlap);
                Ints expected, out(300, -1);
                for (int i = 0; i < frameNum * frameSize; ++i) {
                    const int at = i / frameSize * step - overlap + i % frameSize;
                    expected.push_back(at < 0 || at >= waveLen ? 0 : wave[static_cast<size_t>(at)]);
                }
                expected.resize(out.size(), -1);
                cAudio::bufferXXX(wave.data(), waveLen, frameSize, overlap, out.data());
                ASSERT_EQ(out, expected) << waveLen << ' ' << frameSize << ' ' << overlap;
            }
}

TEST(Framing, IndicesMapBackAndForth) {
    EXPECT_EQ(cAudio::frame2sampleIndex(3, 256, 128), 511);
    EXPECT_EQ(cAudio::frame2sampleIndex(INT_MAX, 256, -256), INT_MAX);
    for (const auto& [sample, overlap, frame] :
         {std::tuple(0, 128, 0), {574, 128, 3}, {575, 128, 4}, {100, 256, 0}})
        EXPECT_EQ(cAudio::sample2frameIndex(sample, 256, overlap), frame) << sample;
    for (int frame = 0; frame < 1000; ++frame)
        for (const int overlap : {0, 1, 100, 255, -50})
            EXPECT_EQ(cAudio::sample2frameIndex(cAudio::frame2sampleIndex(frame, 256, overlap), 256, overlap),
                      frame);
}

} // namespace
