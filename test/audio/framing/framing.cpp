#include "audio/audio.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <numeric>
#include <random>
#include <vector>

namespace {

using Ints = std::vector<int>;

TEST(Framing, Counts) {
    const struct {
        int waveLen, frameSize, overlap, whole, started;
    } cases[] = {
        {1000, 256, 128, 6, 8},      {256, 256, 128, 1, 2},
        {200, 256, 128, 0, 2},       {0, 256, 200, -3, 0},
        {100, 256, 128, 0, 1},       {1000, 256, -44, 3, 4},
        {1000, 256, 256, 0, 0},      {1000, 256, 300, 0, 0},
        {INT_MAX, 1, INT_MIN, 1, 1}, {INT_MAX, INT_MAX, INT_MIN, 1, 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(cAudio::getFrameNum2(c.waveLen, c.frameSize, c.overlap), c.whole)
            << c.waveLen << ' ' << c.overlap;
        EXPECT_EQ(cAudio::getFrameNum(c.waveLen, c.frameSize, c.overlap), c.started)
            << c.waveLen << ' ' << c.overlap;
    }
}

TEST(Framing, StartsAndBuffers) {
    Ints start(6);
    cAudio::buffer2(1000, 256, 128, start.data());
    EXPECT_EQ(start, (Ints{0, 128, 256, 384, 512, 640}));

    Ints wave(10);
    std::iota(wave.begin(), wave.end(), 1);
    Ints out(20, -1);
    cAudio::bufferXXX(wave.data(), 10, 4, 2, out.data());
    EXPECT_EQ(out, (Ints{0, 0, 1, 2, 1, 2, 3, 4, 3, 4, 5, 6, 5, 6, 7, 8, 7, 8, 9, 10}));
    cAudio::bufferXXX(wave.data(), 10, 4, -1, out.data()); // outside its contract: nothing happens
    EXPECT_EQ(out.front(), 0);
}

/// The buffer as the samples arrive: each frame takes over the end of the one before it.
Ints bufferedOneByOne(const Ints& wave, int frameSize, int overlap) {
    const int step = frameSize - overlap;
    const int frameNum = cAudio::getFrameNum(static_cast<int>(wave.size()), frameSize, overlap);
    Ints out;
    for (int i = 0; i < frameNum; ++i) {
        const size_t base = out.size();
        for (size_t k = 0; k < static_cast<size_t>(overlap); ++k)
            out.push_back(base == 0 ? 0 : out[base + k - static_cast<size_t>(overlap)]);
        for (int k = 0; k < step; ++k) {
            const auto at = static_cast<size_t>(i * step + k);
            out.push_back(at < wave.size() ? wave[at] : 0);
        }
    }
    return out;
}

TEST(Framing, BufferEqualsTheOneBuiltSampleBySample) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 300; ++round) {
        Ints wave(random() % 60);
        std::iota(wave.begin(), wave.end(), 1);
        const int frameSize = 1 + static_cast<int>(random() % 12);
        const int overlap = static_cast<int>(random() % static_cast<unsigned>(frameSize));
        const Ints expected = bufferedOneByOne(wave, frameSize, overlap);
        Ints out(expected.size());
        cAudio::bufferXXX(wave.data(), static_cast<int>(wave.size()), frameSize, overlap, out.data());
        EXPECT_EQ(out, expected) << wave.size() << ' ' << frameSize << ' ' << overlap;
    }
}

TEST(Framing, IndicesMapBackAndForth) {
    EXPECT_EQ(cAudio::frame2sampleIndex(0, 256, 128), 127);
    EXPECT_EQ(cAudio::frame2sampleIndex(3, 256, 128), 511);
    EXPECT_EQ(cAudio::sample2frameIndex(511, 256, 128), 3);
    EXPECT_EQ(cAudio::sample2frameIndex(0, 256, 128), 0);
    EXPECT_EQ(cAudio::sample2frameIndex(100, 256, 256), 0);
    EXPECT_EQ(cAudio::frame2sampleIndex(INT_MAX, 256, -256), INT_MAX);
    for (int frame = 0; frame < 1000; ++frame)
        for (const int overlap : {0, 1, 100, 255, -50})
            EXPECT_EQ(cAudio::sample2frameIndex(cAudio::frame2sampleIndex(frame, 256, overlap), 256, overlap),
                      frame);
}

} // namespace
