#include "audio/pitchFunction/plain.hpp"
#include "support/console.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <random>
#include <unistd.h>

namespace {

using Doubles = std::vector<double>;

template <typename T>
Doubles matrix(std::vector<T> wave, int frameSize, int overlap, int pfLen, PF_TYPE type, int method) {
    const int frames = cAudio::getFrameNum2(static_cast<int>(wave.size()), frameSize, overlap);
    Doubles pf(static_cast<size_t>(frames * pfLen));
    wave2pfMat(wave.data(), static_cast<int>(wave.size()), frameSize, overlap, pfLen, type, method,
               pf.data());
    return pf;
}

template <typename T>
class PitchFunction : public testing::Test {};
using Instances = testing::Types<int, double>;
TYPED_TEST_SUITE(PitchFunction, Instances);

TYPED_TEST(PitchFunction, WorkedExamples) {
    using Samples = std::vector<TypeParam>;
    const bool isInt = std::is_same_v<TypeParam, int>;
    const Samples ramp{1, 2, 3, 4};
    const Samples lively{0, 0, 0, 0, 1, 2, 3, 4};
    const struct {
        Samples wave;
        int frameSize, overlap, pfLen;
        PF_TYPE type;
        int method;
        Doubles pf;
    } cases[] = {
        {ramp, 4, 0, 3, PF_AMDF, 1, {0, 3, 4}},
        {ramp, 4, 0, 3, PF_AMDF, 2, {0, 1, 2}},
        {ramp, 4, 0, 3, PF_AMDF, 3, {0, 1, 2}},
        {ramp, 4, 0, 3, PF_AMDF, 4, {0, 3, 4}}, // reaches over the end: absent terms
        {ramp, 4, 0, 3, PF_ACF, 1, isInt ? Doubles{6, 2, -1} : Doubles{5, 1.25, -1.5}},
        {ramp, 4, 0, 5, PF_ACF, 1, isInt ? Doubles{6, 2, -1, -2, 0} : Doubles{5, 1.25, -1.5, -2.25, 0}},
        {lively, 8, 0, 4, PF_AMDF, 4, {0, 4, 7, 9}}, // reversed
        {lively, 8, 0, 4, PF_AMDF, 1, {0, 4, 7, 9}}, // not reversed
        {lively, 4, 2, 2, PF_AMDF, 1, {0, 0, 0, 2, 0, 3}},
        {lively, 2, -1, 2, PF_AMDF, 1, {0, 0, 0, 1, 0, 1}}, // gaps between frames
    };
    for (const auto& c : cases)
        EXPECT_EQ(matrix(c.wave, c.frameSize, c.overlap, c.pfLen, c.type, c.method), c.pf)
            << "type " << c.type << " method " << c.method << " frameSize " << c.frameSize;

    Samples frame = ramp;
    Doubles pf(3);
    frame2acf(frame.data(), 4, pf.data(), 3, 1, 0);
    EXPECT_EQ(pf, (Doubles{30, 20, 11}));
    EXPECT_EQ(frame, ramp);
    frame2amdf(frame.data(), 4, pf.data(), 3, 2);
    EXPECT_EQ(pf, (Doubles{0, 1, 2}));
    frame2acf(frame.data(), 4, pf.data(), 3, 1, 1);
    Samples meanless = ramp;
    plainRemoveMean(meanless.data(), 4);
    EXPECT_EQ(frame, meanless);
    for (const int frameSize : {0, -1, INT_MIN}) {
        frame2acf(frame.data(), frameSize, pf.data(), 3, 3, 1);
        EXPECT_EQ(pf, (Doubles{0, 0, 0})) << frameSize;
    }
}

TYPED_TEST(PitchFunction, NothingIsWrittenWithoutFramesOrLags) {
    const TypeParam* none = nullptr;
    const struct {
        int waveLen, frameSize, overlap, pfLen;
        PF_TYPE type;
    } cases[] = {
        {0, 256, 200, 8, PF_TYPE{7}},
        {200, 256, 128, 8, PF_TYPE{7}},
        {9, 4, 4, 8, PF_ACF},
        {9, 4, INT_MAX, 8, PF_ACF},
        {9, INT_MIN, INT_MAX, 8, PF_ACF},
        {9, -2, -4, 8, PF_AMDF},
        {9, 0, -1, 8, PF_AMDF},
        {9, 4, 0, 0, PF_ACF},
        {9, 4, 0, INT_MIN, PF_AMDF},
    };
    for (const auto& c : cases) // whatever was touched would crash
        wave2pfMat<TypeParam, double>(none, c.waveLen, c.frameSize, c.overlap, c.pfLen, c.type, 3, nullptr);
}

TYPED_TEST(PitchFunction, UnknownTypesAndMethodsEndTheirWay) {
    const std::vector<TypeParam> wave(8);
    for (const int type : {-1, 2, INT_MIN, INT_MAX})
        EXPECT_EQ(fatalMessage([&] { matrix(wave, 4, 0, 2, PF_TYPE{type}, 9); }),
                  "Unknown pfType=" + std::to_string(type) +
                      " (line N of file ../../../../c/lib/audio/audio)");

    const bool isInt = std::is_same_v<TypeParam, int>;
    const std::string channel = isInt ? "^console: " : "^";
    const auto watched = [](auto call) {
        ::dup2(2, 1); // the matcher sees standard error only
        standIn::setConsole([](std::string_view text) {
            std::fprintf(stderr, "console: %.*s", static_cast<int>(text.size()), text.data());
        });
        call();
    };
    for (const int method : {0, -1, 5, INT_MIN, INT_MAX}) {
        EXPECT_EXIT(watched([&] { matrix(wave, 4, 0, 2, PF_AMDF, method); }), testing::ExitedWithCode(1),
                    channel + "Unknown method for frame2amdf\\(\\)!\n$");
        EXPECT_EXIT(watched([&] {
                        std::vector<TypeParam> frame(4);
                        frame2acf<TypeParam, double>(frame.data(), 4, nullptr, 2, method, 1);
                    }),
                    testing::ExitedWithCode(1), channel + "Unknown method for frame2acf\\(\\)!\n$");
    }
}

template <typename T>
void expectFlips() {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 2000; ++round) {
        std::vector<T> frame(random() % 20 + 1);
        for (T& x : frame) x = static_cast<T>(static_cast<int>(random()) >> (round % 30)) / T{3};
        if (round % 5 == 0) std::fill(frame.begin(), frame.end(), T{3}); // halves that deviate equally
        std::vector<T> expected = frame;
        plainFlip(expected.data(), static_cast<int>(frame.size()));
        cAudio::frameFlip(frame.data(), static_cast<int>(frame.size()));
        ASSERT_EQ(frame, expected) << "round " << round;
        cAudio::frameFlip(frame.data(), round % 2 ? -round : 0);
    }
}

TEST(FrameFlip, ReversesWhereTheSecondHalfIsLivelier) {
    std::vector<int> frame{0, 0, 0, 0, 1, 2, 3, 4};
    cAudio::frameFlip(frame.data(), 8);
    EXPECT_EQ(frame, (std::vector<int>{4, 3, 2, 1, 0, 0, 0, 0}));
    for (const char* version : {"portable", "avx2", "avx512"}) {
        ::setenv("WAVEPITCH_KERNEL", version, 1);
        expectFlips<int>();
        expectFlips<float>();
        expectFlips<double>();
    }
    ::unsetenv("WAVEPITCH_KERNEL");
}

} // namespace
