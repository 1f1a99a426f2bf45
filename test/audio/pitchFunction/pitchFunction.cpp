#include "audio/pitchFunction/plain.hpp"
#include "support/audio.hpp"

#include <cstdio>
#include <unistd.h>

namespace {

template <typename T>
class PitchFunction : public testing::Test {};
using Instances = testing::Types<int, double>;
TYPED_TEST_SUITE(PitchFunction, Instances);

TYPED_TEST(PitchFunction, OfOneFrameEqualsThePlainLoops) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::vector<TypeParam> frame(50);
    Doubles expected(60);
    Doubles pf(60);
    for (const int method : {1, 2, 3, 4})
        for (const int removeMean : {0, 1}) {
            for (TypeParam& x : frame) x = static_cast<TypeParam>(static_cast<int>(random()));
            auto plain = frame;
            plainSums(plain.data(), 50, 60, PF_AMDF, method, expected.data());
            frame2amdf(frame.data(), 50, pf.data(), 60, method);
            EXPECT_TRUE(std::equal(pf.begin(), pf.end(), expected.begin(), isSame)) << method;
            if (removeMean != 0) plainRemoveMean(plain.data(), 50);
            plainSums(plain.data(), 50, 60, PF_ACF, method, expected.data());
            frame2acf(frame.data(), 50, pf.data(), 60, method, removeMean);
            EXPECT_TRUE(std::equal(pf.begin(), pf.end(), expected.begin(), isSame))
                << method << ", mean " << removeMean;
            EXPECT_EQ(frame, plain) << method << ", mean " << removeMean;
        }
    for (const int frameSize : {0, INT_MIN}) {
        pf.assign(60, 1.0);
        frame2acf(frame.data(), frameSize, pf.data(), 60, 3, 1);
        EXPECT_EQ(pf, Doubles(60)) << frameSize;
        wave2pfMat<TypeParam, double>(nullptr, 9, -2, -3, 8, PF_ACF, 3, nullptr); // has no frame
    }
}

TYPED_TEST(PitchFunction, UnknownTypesAndMethodsEndTheirWay) {
    std::vector<TypeParam> wave(8);
    double pf = 0.0;
    EXPECT_EQ(fatalMessage([&] { wave2pfMat(wave.data(), 8, 4, 0, 1, PF_TYPE{2}, 9, &pf); }),
              "Unknown pfType=2 (line N of file ../../../../c/lib/audio/audio)");

    const std::string told = std::is_same_v<TypeParam, int> ? "^console: Unknown" : "^Unknown";
    const auto expectExit = [&](const std::string& name, auto call) {
        EXPECT_EXIT(
            {
                ::dup2(2, 1); // the matcher sees standard error only
                standIn::setConsole([](std::string_view text) {
                    std::fprintf(stderr, "console: %.*s", static_cast<int>(text.size()), text.data());
                });
                call();
            },
            testing::ExitedWithCode(1), told + " method for " + name + "\\(\\)!\n$");
    };
    for (const int method : {0, 5}) {
        expectExit("frame2amdf", [&] { frame2amdf(wave.data(), 4, &pf, 1, method); });
        expectExit("frame2acf", [&] { frame2acf(wave.data(), 4, &pf, 1, method, 1); });
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
        plainFlip(expected.data(), lengthOf(frame));
        cAudio::frameFlip(frame.data(), lengthOf(frame));
        ASSERT_EQ(frame, expected) << "round " << round;
        cAudio::frameFlip(frame.data(), -round);
    }
}

TEST(FrameFlip, ReversesWhereTheSecondHalfIsLivelier) {
    expectFlips<int>();
    expectFlips<float>();
    expectFlips<double>();
}

} // namespace
