#include "support/audio.hpp"
#include "utility/rounding.hpp"

namespace {

/// The samples of a melody that has 100 values a second, with faint noise.
Ints sound(const Doubles& melody, int fs) {
    Doubles wave(melody.size() * size_t(fs) / 100);
    cAudio::pitch2wave(melody.data(), lengthOf(melody), 100, fs, wave.data(), lengthOf(wave));
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    Ints samples;
    for (const double x : wave) samples.push_back(myRound(16000.0 * x) + int(random() % 3) - 1);
    return samples;
}

/// Two octaves up in four seconds.
Doubles glide() {
    Doubles melody(400);
    for (size_t i = 0; i < melody.size(); ++i) melody[i] = 48 + 0.06 * double(i);
    return melody;
}

/// What the tracker finds; with so many frames at a time, and without a matrix then.
struct Tracked {
    Doubles pitch, clarity, pfMat;
    Ints bestIndex;

    Tracked(const Ints& wave, PTPARAM& p, int framesAtATime = 0) {
        const auto frameNum = size_t(cAudio::getFrameNum2(lengthOf(wave), p.frameSize, p.overlap));
        pitch.resize(frameNum, -1.0);
        clarity.resize(frameNum, -1.0);
        bestIndex.resize(frameNum, -7);
        if (framesAtATime > 0) {
            wavepitch::pitchTracking::track(wave.data(), lengthOf(wave), p, pitch.data(), clarity.data(),
                                            nullptr, bestIndex.data(), framesAtATime);
            return;
        }
        pfMat.resize(frameNum * size_t(p.pfLen), -1.0);
        pitch.resize(size_t(ptByDpOverPfOnce<double, int>(wave.data(), lengthOf(wave), p, pitch.data(),
                                                          clarity.data(), pfMat.data(), bestIndex.data())));
    }
};

TEST(Tracker, FollowsAGlide) {
    const Doubles melody = glide();
    for (const PF_TYPE pfType : {PF_AMDF, PF_ACF}) {
        PTPARAM p = trackingDefaults(16000, pfType);
        p.useVolThreshold = 0;
        const Doubles tracked = Tracked(sound(melody, 16000), p).pitch;
        int strayed = 0;
        for (size_t i = 0; i < tracked.size(); ++i)
            if (std::abs(tracked[i] - melody[i + 2]) > 0.5) ++strayed;
        EXPECT_LE(strayed, 8) << pfType;
    }
}

TEST(Tracker, EachSwitchDoesItsOneThing) {
    Doubles melody = glide();
    std::fill_n(melody.begin(), 100, 0.0);
    std::fill_n(melody.end() - 100, 100, 0.0);
    const Ints wave = sound(melody, 16000);
    PTPARAM p = trackingDefaults(16000, PF_ACF);
    p.useVolThreshold = p.useClarityThreshold = p.medianFilterOrder = p.useClarityWeight = 0;
    const auto with = [&](int PTPARAM::*field, int value) {
        PTPARAM changed = p;
        changed.*field = value;
        return Tracked(wave, changed);
    };
    const Tracked plain(wave, p);
    EXPECT_EQ(std::pair(p.minIndex, p.maxIndex), std::pair(15, 319));
    EXPECT_EQ(std::count(plain.pitch.begin(), plain.pitch.end(), 0.0), 0);
    EXPECT_EQ(*std::max_element(plain.pfMat.begin(), plain.pfMat.end()), 1048576.0);

    Doubles median = plain.pitch;
    medianFilter(median.data(), lengthOf(median), 3);
    EXPECT_EQ(with(&PTPARAM::medianFilterOrder, 3).pitch, median);

    const Tracked weighted = with(&PTPARAM::useClarityWeight, 1);
    const Tracked loud = with(&PTPARAM::useVolThreshold, 1);
    const Tracked clear = with(&PTPARAM::useClarityThreshold, 1);
    const double largest = *std::max_element(clear.clarity.begin(), clear.clarity.end());
    for (size_t i = 0; i < plain.pitch.size(); ++i) {
        const double* pf = &plain.pfMat[i * 320];
        EXPECT_EQ(weighted.pfMat[i * 320 + 7], pf[7] * plain.clarity[i]) << i;
        EXPECT_EQ(loud.pitch[i], i >= 98 && i <= 298 ? plain.pitch[i] : 0.0) << i;
        EXPECT_EQ(clear.clarity[i], std::max(pf[plain.bestIndex[i]] / pf[0], 0.0)) << i;
        const bool kept = clear.clarity[i] >= static_cast<double>(p.clarityRatio) * largest;
        EXPECT_EQ(clear.pitch[i], kept ? plain.pitch[i] : 0.0) << i;
    }
    p.useVolThreshold = 1;
    EXPECT_EQ(with(&PTPARAM::cutLeadingTrailingZero, 1).pitch,
              Doubles(loud.pitch.begin() + 98, loud.pitch.begin() + 299));
}

TEST(Tracker, BlocksOfAnySizeGiveTheWholePath) {
    Doubles melody(60, 60.0);
    melody.resize(120, 0.0);
    melody.resize(160, 71.5);
    Ints wave = sound(melody, 16000);
    std::fill_n(wave.begin() + 12000, 4000, 0); // silent between faint noise
    const ConsoleCapture console;
    for (const PF_TYPE pfType : {PF_ACF, PF_AMDF})
        for (const int local : {0, 1})
            for (const float weight : {6.0F, 1e9F}) { // no path leaves its lag with the second
                PTPARAM p = trackingDefaults(16000, pfType);
                p.dpUseLocalOptim = local;
                p.indexDiffWeight = weight;
                p.useVolThreshold = 0;
                const Tracked whole(wave, p);
                for (const int framesAtATime : {1, 2, 7, 1000}) {
                    const Tracked found(wave, p, framesAtATime);
                    SCOPED_TRACE(testing::Message() << pfType << local << weight << ' ' << framesAtATime);
                    EXPECT_EQ(found.bestIndex, whole.bestIndex);
                    EXPECT_EQ(found.pitch, whole.pitch);
                    EXPECT_EQ(found.clarity, whole.clarity);
                }
            }
}

TEST(Tracker, FindsNothingInSilenceAndInShortRecordings) {
    const ConsoleCapture console;
    PTPARAM p = trackingDefaults(8000, PF_ACF);
    EXPECT_EQ(Tracked(Ints(255), p).pitch, Doubles());
    EXPECT_EQ(console.text(), "");
    const Tracked silence(Ints(2560), p);
    EXPECT_EQ(withoutLineNumber(console.text()),
              "Warning: Cannot find any segment after epdByVol! (line N of file "
              "../../../../c/lib/audio/audio)");
    EXPECT_EQ(silence.pitch, Doubles(10, 0.0));
    EXPECT_EQ(silence.bestIndex, Ints(10, -1));
    Ints oneFrame(256);
    oneFrame[100] = 99;
    EXPECT_EQ(Tracked(oneFrame, p).bestIndex, Ints{-1}); // has no path
}

} // namespace
