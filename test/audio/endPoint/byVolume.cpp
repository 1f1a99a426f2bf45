#include "audio/audio.hpp"

#include "audio/endPoint/made.hpp"
#include "support/console.hpp"
#include "support/recording.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <numeric>
#include <random>

namespace {

using Ints = std::vector<int>;
using Detector = SEGMENT* (*)(const int*, int, int, const EPDPARAM&, int*);

EPDPARAM defaults(int fs) {
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    return param;
}

/// begin, end, begin, end, ...; checks what holds for segments of every detector.
Ints endsOf(const SEGMENT* segments, int segNum, int frameNum) {
    Ints ends;
    int before = -2;
    for (int i = 0; i < segNum; ++i) {
        const SEGMENT& s = segments[i];
        EXPECT_GT(s.begin, before + 1) << "segments touch or do not ascend";
        EXPECT_GE(s.end, s.begin);
        EXPECT_EQ(s.duration, s.end - s.begin + 1);
        EXPECT_EQ(s.valid, 1);
        before = s.end;
        ends.insert(ends.end(), {s.begin, s.end});
    }
    EXPECT_LT(before, frameNum);
    return ends;
}

Ints detect(Detector detector, const Ints& wave, int fs, const EPDPARAM& param) {
    int segNum = -1;
    const SegmentArray segments(detector(wave.data(), lengthOf(wave), fs, param, &segNum));
    EXPECT_NE(segments, nullptr);
    return endsOf(segments.get(), segNum,
                  std::max(0, cAudio::getFrameNum2(lengthOf(wave), param.frameSize, param.overlap)));
}

TEST(Segment, RunsOfWhatIsAboveZero) {
    const struct {
        std::vector<double> vec;
        Ints ends;
    } cases[] = {
        {{0, 1, 1, 0, 1}, {1, 2, 4, 4}}, {{1, 1, 1}, {0, 2}},      {{5}, {0, 0}}, {{0, -3, 0}, {}}, {{}, {}},
        {{NAN, 2, NAN}, {1, 1}},         {{1, 0, 3}, {0, 0, 2, 2}}};
    for (const auto& c : cases) {
        int segNum = -1;
        const SegmentArray segments(segmentFind(c.vec.data(), lengthOf(c.vec), &segNum));
        EXPECT_NE(segments, nullptr);
        EXPECT_EQ(endsOf(segments.get(), segNum, lengthOf(c.vec)), c.ends);
    }
    const ConsoleCapture console;
    const SEGMENT two[] = {{1, 2, 2, 1}, {4, 4, 1, 0}};
    segmentPrint(two, 2);
    cAudio::segmentPrint(two, 1);
    cAudio::segmentPrint(nullptr, -1);
    EXPECT_EQ(console.text(), "i=0: begin=1, end=2, duration=2, valid=1\n"
                              "i=1: begin=4, end=4, duration=1, valid=0\n"
                              "i=0: begin=1, end=2, duration=2, valid=1\n");
}

TEST(EpdParam, DefaultsByRateAndTheirLines) {
    for (const auto& [fs, frameSize] :
         {std::pair{8000, 128}, {11025, 176}, {16000, 256}, {44100, 705}, {100, 1}, {62, 0}, {-8000, -128}})
        EXPECT_EQ(defaults(fs).frameSize, frameSize) << fs;
    const ConsoleCapture console;
    cAudio::epdParamPrint(defaults(8000));
    EXPECT_EQ(console.text(),
              "epdParam.frameSize=128\nepdParam.overlap=0\nepdParam.volRatio=10\nepdParam.vhRatio=10\n"
              "epdParam.diffOrder=4\nepdParam.volWeight=0.500000\nepdParam.extendNum=1\n"
              "epdParam.minSegment=0.050000\nepdParam.maxSilBetweenWord=0.700000\n"
              "epdParam.minLastWordDuration=0.100000\n");
}

/// A run of frames of 128 samples.
struct Burst {
    int begin, end; // inclusive
    int amplitude = 1000;
};

Ints madeOfBursts(int frameNum, const std::vector<Burst>& bursts) {
    std::vector<Piece> pieces;
    for (const Burst& b : bursts) pieces.push_back({128 * b.begin, 128 * (b.end + 1), double(b.amplitude)});
    return made<int>(128 * frameNum, pieces);
}

TEST(EpdByVol, OneFrameMoreOrLessAtEveryThreshold) {
    const struct {
        const char* what;
        int frameNum;
        std::vector<Burst> bursts;
        Ints ends;
    } cases[] = {
        {"no sound", 100, {}, {}},
        {"nothing but sound", 100, {{0, 99}}, {}},
        {"three frames are short, four are not", 100, {{20, 29}, {40, 42}, {50, 53}}, {20, 29, 50, 53}},
        {"at either end", 100, {{0, 9}, {90, 99}}, {0, 9, 90, 99}},
        {"detached and short", 150, {{10, 60}, {106, 111}}, {10, 60}},
        {"detached, a frame longer", 150, {{10, 60}, {106, 112}}, {10, 60, 106, 112}},
        {"a gap of 45", 150, {{10, 60}, {105, 110}}, {10, 60}},
        {"a gap of 44", 150, {{10, 60}, {104, 109}}, {10, 60, 104, 109}},
        {"only the last is looked at", 200, {{10, 60}, {106, 111}, {115, 125}}, {10, 60, 106, 111, 115, 125}},
        {"a short one hides none", 200, {{10, 60}, {106, 111}, {120, 122}}, {10, 60}},
        {"alone, it is not detached", 150, {{106, 111}}, {106, 111}},
        {"at the threshold, and above it", 100, {{10, 19}, {30, 39, 100}, {50, 59, 101}}, {10, 19, 50, 59}},
        {"k = round(1.5) = 2: one loud frame sets no threshold", 48, {{10, 19}, {30, 30, 20000}}, {10, 19}},
        {"k = 1 of 47: it does", 47, {{10, 19}, {30, 30, 20000}}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(detect(cAudio::epdByVol, madeOfBursts(c.frameNum, c.bursts), 8000, defaults(8000)), c.ends)
            << c.what;
}

TEST(EpdByVolHod, FindsHissThatHasNoVolume) {
    auto wave = made<int>(128 * 100, {{128 * 10, 128 * 30, 1000, 64}, {128 * 50, 128 * 60, 50, 2}});
    EPDPARAM param = defaults(8000);
    EXPECT_EQ(detect(cAudio::epdByVol, wave, 8000, param), (Ints{10, 29}));
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), (Ints{10, 29, 50, 59}));
    param.vhRatio = 1; // nothing but the largest values could be above
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), Ints{});
    wave.resize(127);
    param.diffOrder = 0; // without a frame, it is not looked at
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), Ints{});
}

TEST(EpdByVol, LoudnessChangesNothingAndDelayDelays) {
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp)
    for (int round = 0; round < 50; ++round) {
        std::vector<Burst> bursts{{40, 60}};
        for (int i = 0; i < 8; ++i) {
            const int begin = 61 + static_cast<int>(random() % 200);
            bursts.push_back(
                {begin, begin + static_cast<int>(random() % 15), 20 + static_cast<int>(random() % 300)});
        }
        Ints wave = madeOfBursts(290, bursts);
        const Ints ends = detect(cAudio::epdByVol, wave, 8000, defaults(8000));
        EXPECT_FALSE(ends.empty());
        Ints louder = wave;
        for (int& x : louder) x *= 3;
        EXPECT_EQ(detect(cAudio::epdByVol, louder, 8000, defaults(8000)), ends);
        wave.insert(wave.begin(), 128 * 10, 0);
        Ints delayed = ends;
        for (int& end : delayed) end += 10;
        EXPECT_EQ(detect(cAudio::epdByVol, wave, 8000, defaults(8000)), delayed);
    }
}

TEST(EpdByVol, SpeechIsFoundAndTheSilenceAroundItIsNot) {
    for (const char* name : {"speech8k.wav", "speech16k.wav", "reading16k.wav"})
        for (const Detector detector : {cAudio::epdByVol, cAudio::epdByVolHod}) {
            const auto [fs, wave] = readRecording(name);
            const EPDPARAM param = defaults(fs);
            const Ints ends = detect(detector, wave, fs, param);
            ASSERT_FALSE(ends.empty()) << name;
            Ints volume(wave.size() / static_cast<std::size_t>(param.frameSize));
            wave2volume(wave.data(), lengthOf(wave), param.frameSize, 0, volume.data(), 1);
            double inside = 0.0;
            int insideNum = 0;
            for (std::size_t i = 0; i < ends.size(); i += 2) {
                inside = std::accumulate(volume.begin() + ends[i], volume.begin() + ends[i + 1] + 1, inside);
                insideNum += ends[i + 1] - ends[i] + 1;
            }
            const double outside = std::accumulate(volume.begin(), volume.end(), -inside);
            EXPECT_GT(inside / insideNum, 3.0 * outside / (lengthOf(volume) - insideNum)) << name;
            EXPECT_GT(inside, 0.8 * (inside + outside)) << name;
        }
}

TEST(EpdByVol, NoParameterIsATrap) {
    const Ints wave = madeOfBursts(4, {{1, 2, INT_MAX}});
    for (const int frameSize : {INT_MIN, -1, 0, 1, 64, INT_MAX})
        for (const int overlap : {INT_MIN, -1, 0, 1, 63, 64, INT_MAX})
            for (const int ratio : {INT_MIN, -1, 0, 1, INT_MAX})
                for (const float seconds : {NAN, -INFINITY, 0.0F, 1e30F}) {
                    const EPDPARAM param{frameSize, overlap, ratio,   ratio,   5,
                                         0,         0,       seconds, seconds, seconds};
                    for (const int fs : {INT_MIN, 0, INT_MAX})
                        for (const Detector detector : {cAudio::epdByVol, cAudio::epdByVolHod}) {
                            const Ints ends = detect(detector, wave, fs, param);
                            EXPECT_TRUE(ratio != 0 || ends.empty());
                        }
                }
}

} // namespace
