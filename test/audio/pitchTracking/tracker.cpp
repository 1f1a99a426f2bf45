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
Doubles glide(double low) {
    Doubles melody(400);
    for (size_t i = 0; i < melody.size(); ++i) melody[i] = low + 0.06 * double(i);
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
    for (const int fs : {8000, 16000, 44100})
        for (const PF_TYPE pfType : {PF_AMDF, PF_ACF}) {
            const Doubles melody = glide(fs == 8000 ? 43 : 48); // where short periods are not too coarse
            PTPARAM p = trackingDefaults(fs, pfType);
            p.useVolThreshold = 0;
            const Doubles tracked = Tracked(sound(melody, fs), p).pitch;
            int strayed = 0;
            for (size_t i = 0; i < tracked.size(); ++i) {
                const double middle = double(i) * (p.frameSize - p.overlap) + p.frameSize / 2.0;
                const double expected = melody[size_t(100 * middle / fs)];
                if (std::abs(tracked[i] - expected) > 0.5) ++strayed;
            }
            EXPECT_LE(strayed, lengthOf(tracked) / 50) << fs << ' ' << pfType;
        }
}

TEST(Tracker, EachSwitchDoesItsOneThing) {
    Doubles melody = glide(48);
    std::fill_n(melody.begin(), 100, 0.0);
    std::fill_n(melody.end() - 100, 100, 0.0);
    const Ints wave = sound(melody, 16000);
    PTPARAM p = trackingDefaults(16000, PF_ACF);
    p.useVolThreshold = p.useClarityThreshold = p.medianFilterOrder = p.useClarityWeight = 0;
    p.minPitch = 40.0F;
    const auto with = [&](int PTPARAM::*field, int value) {
        PTPARAM changed = p;
        changed.*field = value;
        return Tracked(wave, changed);
    };
    const Tracked plain(wave, p);
    EXPECT_EQ(std::pair(p.minIndex, p.maxIndex), std::pair(15, 194));
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

/// The lags that the path search chooses when it is given every run of frames as a whole.
Ints lagsOfWholeRuns(const Doubles& pfMat, const PTPARAM& p) {
    const size_t frameNum = pfMat.size() / size_t(p.pfLen);
    std::vector<std::vector<PPC>> candidates(frameNum);
    std::vector<STRUCT_A> A;
    Ints lags(size_t(p.pfLen));
    Doubles pitch(frameNum);
    int runLength = 0;
    const auto endRun = [&] {
        A2pitchByDp(A.data() + A.size() - runLength, runLength, p, pitch.data());
        runLength = 0;
    };
    for (size_t i = 0; i < frameNum; ++i) {
        const double* pf = &pfMat[i * size_t(p.pfLen)];
        const int count = pf2ppc(pf, p.pfLen, p, lags.data());
        for (int j = 0; j < count; ++j)
            candidates[i].push_back({lags[size_t(j)], pf[lags[size_t(j)]], -1, 0.0});
        if (count == 0) endRun();
        A.push_back({count, -1, candidates[i].data()});
        if (count > 0) ++runLength;
    }
    endRun();
    Ints chosen;
    for (const STRUCT_A& frame : A) chosen.push_back(frame.bestIndex);
    return chosen;
}

/// A loud tone for a fifth of a second, then what(seconds), a second long.
Ints afterATone(auto what) {
    Ints wave;
    for (int i = 0; i < 19200; ++i) {
        const double t = i / 16000.0;
        wave.push_back(myRound(i < 3200 ? 16000 * std::sin(6.283185307 * 150 * t) : what(t)));
    }
    return wave;
}

TEST(Tracker, BlocksOfAnySizeGiveTheWholePath) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    const auto noise = [&](int reach) { return int(random() % unsigned(2 * reach + 1)) - reach; };
    const auto tone = [](double frequency, double t) { return 9000 * std::sin(6.283185307 * frequency * t); };
    const std::pair<const char*, Ints> recordings[] = {
        {"octaves", afterATone([&](double t) { return tone(120, t) + tone(240, t); })},
        {"silence", afterATone([&](double t) { return t < 0.7 ? 0.0 : tone(200, t); })},
        {"noise", afterATone([&](double) { return noise(22000); })},
        {"faint noise", afterATone([&](double t) { return noise(1) + (t < 1 ? 0.0 : tone(200, t)); })}};
    const ConsoleCapture console;
    for (const auto& [name, wave] : recordings)
        for (const PF_TYPE pfType : {PF_ACF, PF_AMDF})
            for (const int local : {0, 1})
                for (const float weight : {6.0F, 1e9F}) { // no path leaves its lag with the second
                    PTPARAM p = trackingDefaults(16000, pfType);
                    p.dpUseLocalOptim = local;
                    p.indexDiffWeight = weight;
                    p.useVolThreshold = 0;
                    const Tracked whole(wave, p);
                    EXPECT_EQ(whole.bestIndex, lagsOfWholeRuns(whole.pfMat, p)) << name << pfType << local;
                    for (const int framesAtATime : {1, 2, 7, 1000}) {
                        SCOPED_TRACE(name + std::to_string(pfType) + std::to_string(framesAtATime));
                        const Tracked found(wave, p, framesAtATime);
                        EXPECT_EQ(found.bestIndex, whole.bestIndex);
                        EXPECT_EQ(found.pitch, whole.pitch);
                        EXPECT_EQ(found.clarity, whole.clarity);
                    }
                }
}

TEST(Tracker, FindsNothingInSilenceInOneFrameAndInNone) {
    const ConsoleCapture console;
    PTPARAM p = trackingDefaults(8000, PF_ACF);
    EXPECT_EQ(Tracked(Ints(255), p).pitch, Doubles());
    EXPECT_EQ(console.text(), "");
    const Tracked silence(Ints(2560), p);
    EXPECT_EQ(withoutLineNumber(console.text()),
              "Warning: Cannot find any segment after epdByVol! (line N of file "
              "../../../../c/lib/audio/audio)");
    EXPECT_EQ(silence.pitch, Doubles(10, 0.0));
    EXPECT_EQ(silence.clarity, Doubles(10, 0.0));
    EXPECT_EQ(silence.pfMat, Doubles(1280, 0.0));
    EXPECT_EQ(silence.bestIndex, Ints(10, -1));
    Ints tone = sound(Doubles(100, 60.0), 8000);
    tone.resize(256);
    p.useVolThreshold = 0;
    EXPECT_EQ(Tracked(tone, p).pitch, Doubles{0.0});
    p.pfType = PF_TYPE{5};
    EXPECT_EQ(fatalMessage([&] { Tracked(tone, p); }),
              "Unknown pfType=5 (line N of file ../../../../c/lib/audio/audio)");
}

} // namespace
