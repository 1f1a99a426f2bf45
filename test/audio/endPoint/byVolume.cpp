#include "audio/endPoint/made.hpp"

namespace {

/// "10-19 50-59" of segments, which are freed.
std::string endsOf(SEGMENT* segments, int segNum) {
    const SegmentArray owner(segments);
    std::vector<std::string> ends;
    for (int i = 0; i < segNum; ++i) {
        const SEGMENT& s = segments[i];
        EXPECT_EQ(s.duration, s.end - s.begin + 1);
        EXPECT_EQ(s.valid, 1);
        ends.push_back(std::to_string(s.begin) + '-' + std::to_string(s.end));
    }
    return text(ends);
}

std::string detect(decltype(cAudio::epdByVol) detector, const Ints& wave, int fs, const EPDPARAM& param) {
    int segNum = -1;
    SEGMENT* segments = detector(wave.data(), lengthOf(wave), fs, param, &segNum);
    return endsOf(segments, segNum);
}

EPDPARAM defaults(int fs) {
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    return param;
}

TEST(Segment, IsARunOfWhatIsAboveZero) {
    const struct {
        Doubles vec;
        Text ends;
    } cases[] = {{{0, 1, 1, 0, 1}, "1-2 4-4"}, {{1, -3, 0}, "0-0"}, {{}, ""}, {{notANumber, 2}, "1-1"}};
    for (const auto& [vec, ends] : cases) {
        int segNum = -1;
        SEGMENT* segments = segmentFind(vec.data(), lengthOf(vec), &segNum);
        EXPECT_EQ(endsOf(segments, segNum), ends) << text(vec);
    }
}

/// Silence with loud stretches from their first to their last frame, of 128 samples.
Ints madeOfFrames(int frameNum, Pieces bursts) {
    for (Piece& b : bursts) b = {128 * b.begin, 128 * (b.end + 1), b.amplitude};
    return made<int>(128 * frameNum, bursts);
}

TEST(EpdByVol, OneFrameMoreOrLessAtEveryThreshold) {
    const double a = 1000;
    const struct {
        Text what;
        Pieces bursts;
        Text ends;
        int frameNum = 150;
    } cases[] = {
        {"three frames are short", {{40, 42, a}, {50, 53, a}}, "50-53"},
        {"a gap of 45: detached", {{10, 30, a}, {40, 60, a}, {105, 110, a}}, "10-30 40-60"},
        {"a gap of 44", {{10, 60, a}, {104, 109, a}}, "10-60 104-109"},
        {"a frame longer", {{10, 60, a}, {105, 111, a}}, "10-60 105-111"},
        {"a short one hides none", {{10, 60, a}, {106, 111, a}, {120, 122, a}}, "10-60"},
        {"at the threshold, above it", {{10, 19, a}, {30, 39, 100}, {50, 59, 101}}, "10-19 50-59"},
        {"the two quietest of 100 set none",
         {{0, 99, 100}, {50, 51, 0}, {10, 19, a}, {30, 39, 150}},
         "10-19",
         100},
        {"the third does", {{0, 99, 100}, {50, 52, 0}, {10, 19, a}, {30, 39, 150}}, "10-19 30-39", 100},
        {"nor does the loudest of 48", {{10, 19, a}, {30, 30, 20000}}, "10-19", 48},
        {"the quietest of ten", {{0, 9, 100}, {3, 8, a}}, "3-8", 10},
        {"that of 47 does", {{10, 19, a}, {30, 30, 20000}}, "", 47},
    };
    for (const auto& [what, bursts, ends, frameNum] : cases) {
        const Ints wave = madeOfFrames(frameNum, bursts);
        EXPECT_EQ(detect(cAudio::epdByVol, wave, 8000, defaults(8000)), ends) << what;
    }
    EPDPARAM param = defaults(8000);
    param.overlap = 64;
    const Ints wave = madeOfFrames(100, {{10, 12, a}, {30, 31, a}});
    EXPECT_EQ(detect(cAudio::epdByVol, wave, 8000, param), "19-25") << "six are short, by half the step";
}

TEST(EpdByVolHod, FindsHissThatHasNoVolume) {
    const Ints wave = made<int>(128 * 100, {{128 * 10, 128 * 30, 1000, 64}, {128 * 50, 128 * 60, 20}});
    EPDPARAM param = defaults(8000);
    EXPECT_EQ(detect(cAudio::epdByVol, wave, 8000, param), "10-29");
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), "10-29 50-59");
    param.diffOrder = 1; // the hiss is at half the rate: the fewer differences, the weaker
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), "10-29");
    param.vhRatio = 0;
    EXPECT_EQ(detect(cAudio::epdByVolHod, wave, 8000, param), "") << "nothing to divide by";
}

} // namespace
