#include "support/audio.hpp"
#include "utility/rounding.hpp"

namespace {

/// Silence, a glide up and down between two pitches, silence, and notes with silences between some of them:
/// 100 values per second.
Doubles melody(double low, double high) {
    Doubles values(310, 0.0);
    for (size_t i = 0; i <= 125; ++i)
        values[30 + i] = values[280 - i] = low + (high - low) * double(i) / 125.0;
    for (const double note : {low, (low + high) / 2, high, 0.0, high, low, 0.0})
        values.insert(values.end(), 30, note);
    return values;
}

Ints sound(const Doubles& values, int fs) {
    Doubles wave(values.size() * size_t(fs) / 100);
    cAudio::pitch2wave(values.data(), lengthOf(values), 100, fs, wave.data(), lengthOf(wave));
    Ints samples;
    for (const double x : wave) samples.push_back(myRound(16000.0 * x));
    return samples;
}

struct Tracked {
    Doubles pitch, clarity, pfMat;
    Ints bestIndex;

    Tracked() = default;
    Tracked(const Ints& wave, PTPARAM& p) {
        const int frameNum = cAudio::getFrameNum2(lengthOf(wave), p.frameSize, p.overlap);
        clarity = pitch = Doubles(size_t(frameNum), -1.0);
        bestIndex.resize(pitch.size(), -7);
        pfMat.resize(pitch.size() * size_t(p.pfLen), -1.0);
        pitch.resize(size_t(ptByDpOverPfOnce<double, int>(wave.data(), lengthOf(wave), p, pitch.data(),
                                                          clarity.data(), pfMat.data(), bestIndex.data())));
    }
};

/// The share of frames with a pitch, to half a semitone, that the melody has within 30 ms of their middle, or
/// with none where it has none.
double shareFound(const Doubles& values, PTPARAM p) {
    const Doubles tracked = Tracked(sound(values, p.fs), p).pitch;
    double found = 0.0;
    for (size_t i = 0; i < tracked.size(); ++i) {
        const double sample = double(i) * (p.frameSize - p.overlap) + p.frameSize / 2.0;
        const auto middle = values.begin() + static_cast<int>(sample * 100 / p.fs);
        found += std::any_of(
            std::max(middle - 3, values.begin()), std::min(middle + 4, values.end()),
            [&](double pitch) { return std::abs(tracked[i] - pitch) <= (pitch > 0.0 ? 0.5 : 0.0); });
    }
    return found / double(tracked.size());
}

TEST(Tracker, FindsMelodies) {
    for (const int fs : {8000, 16000, 44100})
        for (const PF_TYPE pfType : {PF_AMDF, PF_ACF}) {
            const double low = fs == 8000 ? 43 : 48; // where short periods are not too coarse
            EXPECT_GE(shareFound(melody(low, low + 24), trackingDefaults(fs, pfType)), 0.98)
                << fs << ' ' << pfType;
        }
}

TEST(Tracker, EachSwitchDoesItsOneThing) {
    Ints wave = sound(melody(50, 62), 16000);
    std::mt19937 random(1);                                                   // NOLINT(cert-msc51-cpp)
    for (int& sample : wave) sample += static_cast<int>(random() % 170) - 85; // no frame is silent
    PTPARAM p = trackingDefaults(16000, PF_ACF);
    p.useVolThreshold = p.useClarityThreshold = p.medianFilterOrder = p.useClarityWeight = 0;
    const auto with = [&](int PTPARAM::*field, int value) {
        PTPARAM changed = p;
        changed.*field = value;
        return Tracked(wave, changed);
    };
    p.minPitch = 40.0F;
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
        EXPECT_TRUE(loud.pitch[i] == plain.pitch[i] || loud.pitch[i] == 0.0) << i;
        const double ratio = pf[plain.bestIndex[i]] / pf[0];
        EXPECT_EQ(clear.clarity[i], ratio < 0 || ratio > 1 ? 0 : ratio) << i;
        const bool kept = clear.clarity[i] >= static_cast<double>(p.clarityRatio) * largest;
        EXPECT_EQ(clear.pitch[i], kept ? plain.pitch[i] : 0.0) << i;
    }
    EXPECT_EQ(std::count(loud.pitch.begin(), loud.pitch.end(), 0.0), 114);
    p.useVolThreshold = 1;
    int first = 0, last = 0;
    cAudio::trimPitch(loud.pitch.data(), lengthOf(loud.pitch), first, last);
    EXPECT_EQ(with(&PTPARAM::cutLeadingTrailingZero, 1).pitch,
              Doubles(loud.pitch.begin() + first, loud.pitch.begin() + last + 1));
}

/// What the tracker finds with so many frames at a time; without a matrix of the caller's.
Tracked inBlocks(const Ints& wave, PTPARAM p, int framesAtATime) {
    Tracked result;
    const int frameNum = cAudio::getFrameNum2(lengthOf(wave), p.frameSize, p.overlap);
    result.pitch.resize(size_t(frameNum));
    result.clarity.resize(size_t(frameNum));
    result.bestIndex.resize(size_t(frameNum));
    wavepitch::pitchTracking::track(wave.data(), lengthOf(wave), p, result.pitch.data(),
                                    result.clarity.data(), nullptr, result.bestIndex.data(), framesAtATime);
    return result;
}

/// The lags that the path search chooses when it is given every run of frames as a whole.
Ints lagsOfWholeRuns(Doubles pfMat, const PTPARAM& p) {
    const size_t pfLen = size_t(p.pfLen);
    const size_t frameNum = pfMat.size() / pfLen;
    std::vector<std::vector<PPC>> candidates(frameNum);
    std::vector<STRUCT_A> A(frameNum, STRUCT_A{0, -1, nullptr});
    Ints lags(pfLen);
    for (size_t i = 0; i < frameNum; ++i) {
        const double* pf = &pfMat[i * pfLen];
        A[i].ppcLen = pf2ppc(pf, p.pfLen, p, lags.data());
        for (int j = 0; j < A[i].ppcLen; ++j)
            candidates[i].push_back({lags[size_t(j)], pf[lags[size_t(j)]], -1, 0.0});
        A[i].ppc = candidates[i].data();
    }
    Doubles pitch(frameNum);
    size_t first = 0;
    for (size_t i = 0; i <= frameNum; ++i) {
        if (i < frameNum && A[i].ppcLen > 0) continue;
        A2pitchByDp(&A[first], int(i - first), p, &pitch[first]);
        first = i + 1;
    }
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
        {"noise", afterATone([&](double) { return double(noise(22000)); })},
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
                        const Tracked found = inBlocks(wave, p, framesAtATime);
                        EXPECT_EQ(found.bestIndex, whole.bestIndex);
                        EXPECT_EQ(found.pitch, whole.pitch);
                        EXPECT_EQ(found.clarity, whole.clarity);
                    }
                }
}

TEST(Tracker, NothingToTrack) {
    const ConsoleCapture console;
    PTPARAM p = trackingDefaults(8000, PF_ACF);
    p.dpUseLocalOptim = 0;
    EXPECT_EQ(Tracked(Ints(255), p).pitch, Doubles());
    EXPECT_EQ(console.text(), "");
    const Tracked silence(Ints(2560), p);
    EXPECT_EQ(withoutLineNumber(console.text()),
              "Warning: Cannot find any segment after epdByVol! (line N of file "
              "../../../../c/lib/audio/audio)");
    EXPECT_EQ(std::tuple(silence.pitch, silence.clarity), std::tuple(Doubles(10, 0.0), Doubles(10, 0.0)));
    EXPECT_EQ(silence.pfMat, Doubles(1280, 0.0));
    EXPECT_EQ(silence.bestIndex, Ints(10, -1));
    Ints tone = sound(Doubles(100, 60.0), 8000);
    tone.resize(256);
    p.useVolThreshold = 0;
    EXPECT_EQ(Tracked(tone, p).pitch, Doubles{0.0}); // a single frame has no path
    p.pfType = PF_TYPE{5};
    EXPECT_EQ(fatalMessage([&] { Tracked(tone, p); }),
              "Unknown pfType=5 (line N of file ../../../../c/lib/audio/audio)");
}

} // namespace
