#include "audio/endPoint/made.hpp"

namespace {

EPDPARAM defaults(int fs) {
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    return param;
}

/// begin, end, begin, end, ... of segments, which are freed; checks what holds for those of every detector.
Ints endsOf(SEGMENT* segments, int segNum) {
    const SegmentArray owner(segments);
    Ints ends;
    for (const SEGMENT* s = segments; s != segments + segNum; ++s) {
        EXPECT_TRUE(s->begin > (ends.empty() ? -1 : ends.back() + 1)) << "they touch or do not ascend";
        EXPECT_TRUE(s->duration == s->end - s->begin + 1 && s->duration > 0 && s->valid == 1);
        ends.insert(ends.end(), {s->begin, s->end});
    }
    return ends;
}

Ints detect(decltype(cAudio::epdByVol) detector, const Ints& wave, int fs, const EPDPARAM& param) {
    int segNum = -1;
    SEGMENT* segments = detector(wave.data(), lengthOf(wave), fs, param, &segNum);
    return endsOf(segments, segNum);
}

TEST(Segment, RunsOfWhatIsAboveZero) {
    const std::pair<Doubles, Ints> cases[] = {{{0, 1, 1, 0, 1}, {1, 2, 4, 4}},
                                              {{1, 1, 1}, {0, 2}},
                                              {{}, {}},
                                              {{0, -3, 0}, {}},
                                              {{notANumber, 2, notANumber}, {1, 1}}};
    for (const auto& [vec, ends] : cases) {
        int segNum = -1;
        SEGMENT* segments = segmentFind(vec.data(), lengthOf(vec), &segNum);
        EXPECT_EQ(endsOf(segments, segNum), ends);
    }
}

TEST(EndPointConsole, SegmentsAndParameters) {
    const ConsoleCapture console;
    const SEGMENT two[] = {{1, 2, 2, 1}, {4, 4, 1, 0}};
    cAudio::segmentPrint(two, 2);
    cAudio::epdParamPrint(defaults(44100));
    EXPECT_EQ(console.text(),
              "i=0: begin=1, end=2, duration=2, valid=1\ni=1: begin=4, end=4, duration=1, valid=0\n"
              "epdParam.frameSize=705\nepdParam.overlap=0\nepdParam.volRatio=10\nepdParam.vhRatio=10\n"
              "epdParam.diffOrder=4\nepdParam.volWeight=0.500000\nepdParam.extendNum=1\n"
              "epdParam.minSegment=0.050000\nepdParam.maxSilBetweenWord=0.700000\n"
              "epdParam.minLastWordDuration=0.100000\n");
}

/// Silence with loud stretches from their first to their last frame, of 128 samples.
Ints madeOfFrames(int frameNum, Pieces bursts) {
    for (Piece& b : bursts) b = {128 * b.begin, 128 * (b.end + 1), b.amplitude};
    return made<int>(128 * frameNum, bursts);
}

TEST(EpdByVol, OneFrameMoreOrLessAtEveryThreshold) {
    const double a = 1000;
    const std::tuple<Text, int, Pieces, Ints> cases[] = {
        {"nothing but sound", 100, {{0, 99, a}}, {}},
        {"three frames are short, four are not",
         100,
         {{0, 9, a}, {40, 42, a}, {50, 53, a}, {90, 99, a}},
         {0, 9, 50, 53, 90, 99}},
        {"detached: a gap of 45", 150, {{10, 30, a}, {40, 60, a}, {105, 110, a}}, {10, 30, 40, 60}},
        {"a gap of 44", 150, {{10, 60, a}, {104, 109, a}}, {10, 60, 104, 109}},
        {"a frame longer", 150, {{10, 60, a}, {105, 111, a}}, {10, 60, 105, 111}},
        {"only the last", 200, {{10, 60, a}, {106, 111, a}, {115, 125, a}}, {10, 60, 106, 111, 115, 125}},
        {"a short one hides none", 200, {{10, 60, a}, {106, 111, a}, {120, 122, a}}, {10, 60}},
        {"at the threshold, above it", 100, {{10, 19, a}, {30, 39, 100}, {50, 59, 101}}, {10, 19, 50, 59}},
        {"the quietest sets no threshold",
         100,
         {{0, 99, 100}, {50, 50, 0}, {10, 19, a}, {30, 39, 150}},
         {10, 19}},
        {"the loudest of 48 sets no threshold", 48, {{10, 19, a}, {30, 30, 20000}}, {10, 19}},
        {"that of 47 does", 47, {{10, 19, a}, {30, 30, 20000}}, {}},
    };
    for (const auto& [what, frameNum, bursts, ends] : cases)
        EXPECT_EQ(detect(cAudio::epdByVol, madeOfFrames(frameNum, bursts), 8000, defaults(8000)), ends)
            << what;
    const Ints wave = madeOfFrames(100, {{10, 16, a}, {30, 35, a}});
    EXPECT_EQ(detect(cAudio::epdByVol, wave, 16000, defaults(8000)), (Ints{10, 16})); // six are short now
}

TEST(EpdByVolHod, FindsHissThatHasNoVolume) {
    auto wave = made<int>(128 * 100, {{128 * 10, 128 * 30, 1000, 64}, {128 * 50, 128 * 60, 20, 2}});
    EPDPARAM param = defaults(8000);
    EXPECT_EQ(detect(cAudio::epdByVol, wave, 8000, param), (Ints{10, 29}));
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), (Ints{10, 29, 50, 59}));
    param.diffOrder = 1; // the hiss is at half the rate: the fewer differences, the weaker
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), (Ints{10, 29}));
    param.vhRatio = 1; // nothing but the largest values could be above
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), Ints{});
}

TEST(EpdByVol, NoParameterIsATrap) {
    const Ints wave = madeOfFrames(4, {{1, 2, INT_MAX}});
    std::mt19937 random(6); // NOLINT(cert-msc51-cpp)
    const int extremes[] = {INT_MIN, -1, 0, 1, 63, 64, INT_MAX};
    const auto any = [&] { return extremes[random() % std::size(extremes)]; };
    for (int round = 0; round < 5000; ++round) {
        const float seconds =
            random() % 2 ? static_cast<float>(notANumber) : 1e30F * static_cast<float>(any());
        const EPDPARAM param{any(), any(), any(), any(), 5, 0, 0, seconds, seconds, seconds};
        EXPECT_TRUE(detect(cAudio::epdByVol, wave, any(), param).empty() || param.volRatio != 0);
        EXPECT_TRUE(detect(cAudio::epdByVolHod, wave, any(), param).empty() || param.vhRatio != 0);
    }
}

} // namespace
