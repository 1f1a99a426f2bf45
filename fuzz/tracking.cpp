// The trackers: the same results with every version of the kernels, and by frames as many at a time as they
// like; and what is done to pitch vectors.
#include "audio/audio.hpp"
#include "audio/framing/sampleSource.hpp"
#include "support/check.hpp"
#include "support/sound.hpp"
#include "support/target.hpp"
#include "support/versions.hpp"

namespace {

constexpr double mostSteps = 3e6; // of a pitch function's loops

PTPARAM usualParam(Bytes& bytes) {
    PTPARAM param;
    const int fs = bytes.oneOf({8000, 16000, 11025, 44100, 1, 0, -8000, 300});
    const auto type = PF_TYPE{bytes.below(2)};
    if (bytes.flag())
        cAudio::ptParamSet(&param, fs, bytes.oneOf({16, 8}), type, nullptr);
    else
        cAudio::ptParamSet(&param, static_cast<float>(bytes.oneOf({100.0, 31.25, 1.0, 0.0, -5.0, 1e9})), fs,
                           16, type);
    return param;
}

PTPARAM anyParam(Bytes& bytes) {
    PTPARAM param = usualParam(bytes);
    if (bytes.flag()) {
        param.frameSize = bytes.length(0, 300);
        param.overlap = bytes.flag() ? param.frameSize - bytes.from(-2, 40) : bytes.below(300);
        param.pfLen = bytes.length(0, 300);
    }
    if (bytes.flag()) {
        param.minPitch = static_cast<float>(bytes.from(-20, 130));
        param.maxPitch = static_cast<float>(bytes.flag() ? bytes.from(-20, 130) : bytes.anyInt());
        param.pitchRangeMax = static_cast<float>(bytes.from(-1, 50));
    }
    if (bytes.flag()) {
        param.dpMethod = bytes.below(4);
        param.dpPosDiffOrder = bytes.below(3);
        param.dpUseLocalOptim = bytes.below(2);
        param.pfWeight = bytes.oneOf({0.0F, 1.0F, -1.0F, 1e30F, 12800.0F});
        param.indexDiffWeight = bytes.oneOf({0.0F, 1.0F, -1.0F, 1e30F, 388.0F});
    }
    if (bytes.flag()) {
        param.useVolThreshold = bytes.below(2);
        param.useClarityThreshold = bytes.below(2);
        param.useClarityWeight = bytes.below(2);
        param.clarityRatio = bytes.oneOf({0.0F, 0.6F, 1.0F, -1.0F, 9.0F});
        param.medianFilterOrder = bytes.flag() ? bytes.from(-1, 20) : bytes.anyInt();
        param.cutLeadingTrailingZero = bytes.below(2);
    }
    return param;
}

/// As many samples as there is time for.
int waveLength(Bytes& bytes, const PTPARAM& param) {
    const double step = std::max(1.0, static_cast<double>(param.frameSize) - param.overlap);
    const double frames = mostSteps / (1 + static_cast<double>(param.frameSize) * param.pfLen);
    const double most = std::clamp(std::abs(param.overlap) + step * frames, 1.0, 12000.0);
    return bytes.length(0, static_cast<int>(most));
}

struct Track {
    Exact<double> pitch, clarity, pfMat;
    Exact<int> lags;
    int count = 0;

    Track(const Exact<int>& wave, PTPARAM param, int framesAtATime)
        : Track(std::max(0, cAudio::getFrameNum2(wave.length(), param.frameSize, param.overlap)),
                param.pfLen) {
        const auto track = [&] {
            if (framesAtATime == 0)
                count = ptByDpOverPfOnce<double, int>(wave.data(), wave.length(), param, pitch.data(),
                                                      clarity.data(), pfMat.data(), lags.data());
            else
                count = wavepitch::pitchTracking::track(wave.data(), wave.length(), param, pitch.data(),
                                                        nullptr, nullptr, lags.data(), framesAtATime);
        };
        if (!returns(track)) fail("the tracker has no result");
    }

private:
    Track(int frameNum, int pfLen)
        : pitch(frameNum), clarity(frameNum), pfMat(frameNum * std::max(pfLen, 0)), lags(frameNum) {}
};

void track(Bytes& bytes) {
    const PTPARAM param = anyParam(bytes);
    const Exact<int> wave = intSound(bytes, waveLength(bytes, param));
    const Track expected(wave, param, 0);
    require(expected.count >= 0 && expected.count <= expected.pitch.length(), "no more pitches than frames");
    const int some = bytes.from(1, 70);
    withEveryVersion([&](const std::string& version) {
        const Track whole(wave, param, 0);
        requireSameList(whole.pitch, expected.pitch, "pitch, " + version);
        requireSameList(whole.clarity, expected.clarity, "clarity, " + version);
        requireSameList(whole.pfMat, expected.pfMat, "matrix, " + version);
        requireSameList(whole.lags, expected.lags, "lags, " + version);
        const Track parts(wave, param, some);
        requireSameList(parts.pitch, expected.pitch, "pitch by parts, " + version);
        requireSameList(parts.lags, expected.lags, "lags by parts, " + version);
    });
}

void recording(Bytes& bytes) {
    const int fs = bytes.oneOf({8000, 16000, 44100, 11025, 1000, 0, -1});
    const int nbits = bytes.oneOf({16, 8, 12, 0, 31});
    const Exact<double> wave = sound(bytes, bytes.length(0, 6000), 32767);
    std::vector<short> samples;
    for (const double x : wave) samples.push_back(std::abs(x) < 32768 ? static_cast<short>(x) : short{0});
    const auto pitchOf = [&] {
        int* values = nullptr;
        int count = 0;
        cAudio::bGetPitch(samples, values, count, fs, nbits);
        const std::unique_ptr<int, decltype(&std::free)> owner(values, std::free);
        return std::vector<int>(values, values + count);
    };
    const std::vector<int> expected = pitchOf();
    withEveryVersion([&](const std::string& version) {
        requireSameList(pitchOf(), expected, "pitch vector, " + version);
    });
    cAudio::isWaveSilence(samples, fs, bytes.flag() ? nbits : bytes.anyInt(), bytes.anyInt());
}

VOICEPARAM voiceParam(Bytes& bytes) {
    VOICEPARAM param;
    param.fs = bytes.oneOf({8000, 16000, 4000, 8083, 11025, 22050, 44100, 192000});
    if (bytes.flag()) {
        param.minFreq = bytes.from(20, 400);
        param.maxFreq = param.minFreq + bytes.from(1, 1500);
        param.frameRate = bytes.oneOf({1.0, 7.3, 50.0, 100.0, 999.0, 1000.0});
    }
    if (bytes.flag()) {
        param.voicingThreshold = bytes.below(11) / 10.0;
        param.candidateThreshold = bytes.below(11) / 10.0;
        param.voicingCost = bytes.oneOf({0.0, 0.3, 9.0, 1e300});
        param.lagCost = bytes.oneOf({0.0, 2.0, 1e300});
        param.silenceLevel = -bytes.from(0, 100);
        param.fundamentalShare = bytes.below(11) / 10.0;
    }
    return param;
}

template <typename Sample>
struct Voice {
    Exact<double> f0, strength;
    Exact<float> correlation;
    Exact<VOICECANDIDATES> candidates;

    Voice(const Exact<Sample>& wave, const VOICEPARAM& param, const VOICESIZES& sizes)
        : f0(sizes.frameNum, -7), strength(sizes.frameNum, -7),
          correlation(sizes.frameNum * sizes.lagNum, -7), candidates(sizes.frameNum) {
        const int count = wave2f0(wave.data(), wave.length(), param, f0.data(), strength.data(),
                                  correlation.data(), candidates.data());
        requireSame(count, sizes.frameNum, "the number of frames");
    }
};

template <typename Sample>
void voiceOf(const Exact<Sample>& wave, const VOICEPARAM& param) {
    const VOICESIZES sizes = voiceSizes(wave.length(), param);
    const Voice expected(wave, param, sizes);
    for (int i = 0; i < sizes.frameNum; ++i) {
        require(expected.f0[i] >= 0 && std::isfinite(expected.f0[i]), "a frequency");
        require(expected.strength[i] >= 0 && expected.strength[i] <= 1, "a strength from 0 to 1");
        require((expected.f0[i] > 0) || expected.strength[i] == 0, "strength of voices only");
        require(expected.candidates[i].num >= 0 && expected.candidates[i].num <= voiceCandidateMax,
                "candidates");
    }
    withEveryVersion([&](const std::string& version) {
        const Voice found(wave, param, sizes);
        requireSameList(found.f0, expected.f0, "frequency, " + version);
        requireSameList(found.strength, expected.strength, "strength, " + version);
        requireSameList(found.correlation, expected.correlation, "correlation, " + version);
    });
}

void voice(Bytes& bytes) {
    VOICEPARAM param = voiceParam(bytes);
    if (bytes.below(10) == 0) param.minFreq = bytes.anyDouble();
    if (bytes.below(10) == 0) param.frameRate = bytes.anyDouble();
    if (bytes.below(10) == 0) param.fs = bytes.anyInt();
    Exact<double> f0(1);
    if (voiceParamFault(param)) {
        require(!returns([&] { wave2f0(f0.data(), 1, param, f0.data()); }), "faulty parameters are refused");
        return;
    }
    const int waveLen = bytes.length(0, param.fs / (param.frameRate > 100 ? 20 : 3));
    if (bytes.flag())
        voiceOf(intSound(bytes, waveLen), param);
    else
        voiceOf(sound(bytes, waveLen, bytes.oneOf({1.0, 1e-300, 1e300, 32767.0})), param);
}

void frameOfPitchFunction(Bytes& bytes) {
    PTPARAM param = anyParam(bytes);
    param.minIndex = bytes.from(-3, 100);
    param.maxIndex = bytes.flag() ? bytes.from(-3, 320) : bytes.anyInt();
    const Exact<double> pf = exactDoubles(bytes, bytes.length(0, 300));
    Exact<int> lags(pf.length());
    const int count = pf2ppc(pf.data(), pf.length(), param, lags.data());
    for (int i = 0; i < count; ++i)
        require(lags[i] > (i > 0 ? lags[i - 1] : 0) && lags[i] < pf.length(), "rising lags above 0");
    double clarity = 0;
    pf2pitchClarity(pf.data(), pf.length(), param, &clarity);
    const Exact<int> ints = exactInts(bytes, pf.length());
    int intClarity = 0;
    pf2pitchClarity(ints.data(), ints.length(), param, &intClarity);
}

/// Each median by itself.
void medians(Bytes& bytes) {
    Exact<double> values = exactDoubles(bytes, bytes.length(0, 200));
    const Exact<double> before = values;
    const int n = values.length();
    const int order = bytes.flag() ? bytes.from(-1, 30) : bytes.from(-1, n + 2);
    medianFilter(values.data(), n, order);
    const int half = order / 2;
    for (int i = 0; i < n; ++i) {
        const bool isKept = order < 1 || i < half || i >= n - half;
        const double expected = isKept ? before[i] : vecMedian(before.data() + i - half, order);
        requireSame(values[i], expected, "median filter of order " + std::to_string(order));
    }
    getPitchMedian(before.data(), n);
}

void pitchVector(Bytes& bytes) {
    Exact<double> pitch(bytes.length(0, 60));
    for (double& x : pitch) x = bytes.below(3) == 0 ? 0 : bytes.from(20, 100);
    if (bytes.flag()) pitch = exactDoubles(bytes, pitch.length());
    int first = 0;
    int last = 0;
    cAudio::trimPitch(pitch.data(), pitch.length(), first, last);
    require(first >= 0 && first <= pitch.length() && last >= first - 1 && last < pitch.length(), "a stretch");
    int* values = nullptr;
    int count = 0;
    cAudio::bModifyPV(pitch.copy(), values, count);
    const std::unique_ptr<int, decltype(&std::free)> owner(values, std::free);
    require(count >= 0 && count <= pitch.length(), "no more values than before");
    Exact<double> times = exactDoubles(bytes, pitch.length());
    std::sort(times.begin(), times.end());
    cAudio::interp4pitchPeriod(times.data(), times.length(), pitch.data(), bytes.anyDouble());
    cAudio::limitPitch(pitch.data(), pitch.length(), static_cast<float>(bytes.from(0, 99)),
                       static_cast<float>(bytes.from(0, 99)));
}

} // namespace

void fuzz(Bytes& bytes) {
    constexpr void (*calls[])(Bytes&) = {track,   track,      recording, voice, voice, frameOfPitchFunction,
                                         medians, pitchVector};
    calls[bytes.below(static_cast<int>(std::size(calls)))](bytes);
}
