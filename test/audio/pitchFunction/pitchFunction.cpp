#include "audio/pitchFunction/plain.hpp"
#include "support/audio.hpp"

#include <cstdio>
#include <functional>
#include <unistd.h>

namespace {

template <typename T>
class PitchFunction : public testing::Test {};
using Instances = testing::Types<int, double>;
TYPED_TEST_SUITE(PitchFunction, Instances);

TYPED_TEST(PitchFunction, OfOneFrameEqualsThePlainLoops) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::vector<TypeParam> frame(50);
    Doubles expected(40), pf(40);
    for (const int method : {1, 2, 3, 4})
        for (const int removeMean : {0, 1}) {
            for (TypeParam& x : frame) x = static_cast<TypeParam>(static_cast<int>(random()));
            auto plain = frame;
            plainSums(plain.data(), 50, 40, PF_AMDF, method, expected.data());
            frame2amdf(frame.data(), 50, pf.data(), 40, method);
            EXPECT_EQ(pf, expected) << method;
            EXPECT_EQ(frame, plain) << method;
            if (removeMean) plainRemoveMean(plain.data(), 50);
            plainSums(plain.data(), 50, 40, PF_ACF, method, expected.data());
            frame2acf(frame.data(), 50, pf.data(), 40, method, removeMean);
            EXPECT_EQ(pf, expected) << method << removeMean;
            EXPECT_EQ(frame, plain) << method << removeMean;
        }
    for (const int frameSize : {0, INT_MIN}) { // no terms
        pf.assign(40, 1.0);
        frame2acf(frame.data(), frameSize, pf.data(), 40, 3, 1);
        EXPECT_EQ(pf, Doubles(40)) << frameSize;
    }
    pf.assign(40, 1.0);
    wave2pfMat(frame.data(), 1, 0, -1, 20, PF_ACF, 3, pf.data()); // two frames
    EXPECT_EQ(pf, Doubles(40));
}

TYPED_TEST(PitchFunction, NothingIsWrittenWithoutFramesOrLags) {
    const int cases[][5] = {{0, 256, 200, 8, 7},    {200, 256, 128, 8, 7},
                            {9, 4, 4, 8, PF_ACF},   {9, 4, INT_MAX, 8, PF_ACF},
                            {9, -2, -4, 8, PF_ACF}, {9, INT_MIN, INT_MAX, 8, PF_ACF},
                            {9, 4, 0, 0, PF_ACF},   {9, 4, 0, INT_MIN, PF_AMDF}};
    for (const auto& [waveLen, frameSize, overlap, pfLen, type] : cases) // whatever was touched would crash
        wave2pfMat<TypeParam, double>(nullptr, waveLen, frameSize, overlap, pfLen, PF_TYPE{type}, 3, nullptr);
}

TYPED_TEST(PitchFunction, UnknownTypesAndMethodsEndTheirWay) {
    std::vector<TypeParam> wave(8);
    const auto matrix = [&](int type, int method) {
        wave2pfMat<TypeParam, double>(wave.data(), 8, 4, 0, 2, PF_TYPE{type}, method, nullptr);
    };
    for (const int type : {-1, 2, INT_MIN, INT_MAX})
        EXPECT_EQ(fatalMessage([&] { matrix(type, 9); }),
                  "Unknown pfType=" + std::to_string(type) +
                      " (line N of file ../../../../c/lib/audio/audio)");

    const std::pair<const char*, std::function<void(int)>> calls[] = {
        {"acf", [&](int method) { matrix(PF_ACF, method); }},
        {"acf", [&](int method) { frame2acf<TypeParam, double>(wave.data(), 4, nullptr, 2, method, 1); }},
        {"amdf", [&](int method) { frame2amdf<TypeParam, double>(wave.data(), 4, nullptr, 2, method); }}};
    const auto watched = [](auto call, int method) {
        ::dup2(2, 1); // the matcher sees standard error only
        standIn::setConsole([](std::string_view text) {
            std::fprintf(stderr, "console: %.*s", static_cast<int>(text.size()), text.data());
        });
        call(method);
    };
    const std::string channel = std::is_same_v<TypeParam, int> ? "^console: " : "^";
    for (const auto& [name, call] : calls)
        for (const int method : {INT_MIN, 0, 5, INT_MAX})
            EXPECT_EXIT(watched(call, method), testing::ExitedWithCode(1),
                        channel + "Unknown method for frame2" + name + "\\(\\)!\n$");
}

template <typename T>
void expectFlips() {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 2000; ++round) {
        std::vector<T> frame(random() % 20 + 1);
        for (T& x : frame) x = static_cast<T>(static_cast<int>(random()) >> (round % 30)) / T{3};
        if (round % 5 == 0) std::fill(frame.begin(), frame.end(), T{3}); // halves that deviate equally
        std::vector<T> expected = frame;
        plainFlip(expected.data(), lengthOf(frame));
        cAudio::frameFlip(frame.data(), lengthOf(frame));
        ASSERT_EQ(frame, expected) << "round " << round;
        cAudio::frameFlip(frame.data(), round % 2 ? -round : 0);
    }
}

TEST(FrameFlip, ReversesWhereTheSecondHalfIsLivelier) {
    expectFlips<int>();
    expectFlips<float>();
    expectFlips<double>();
}

} // namespace
