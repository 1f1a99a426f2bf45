// Frame features, segments, the detectors with their curves, and the volume check.
#include "audio/audio.hpp"
#include "audio/endPoint/curves.hpp"
#include "support/check.hpp"
#include "support/folder.hpp"
#include "support/sound.hpp"
#include "support/target.hpp"
#include "utility/rounding.hpp"

namespace {

using namespace wavepitch::endPoint;

constexpr int mostSamples = 12000;

struct Frames {
    int frameSize, overlap, frameNum;

    Frames(Bytes& bytes, int waveLen)
        : frameSize(bytes.length(-1, 400)),
          overlap(bytes.flag() ? bytes.from(-20, 400) : frameSize - bytes.from(-1, 90)),
          frameNum(frameSize < 1 ? 0 : std::max(0, cAudio::getFrameNum2(waveLen, frameSize, overlap))) {}
};

/// Each value is that of its frame alone.
void features(Bytes& bytes) {
    const Exact<int> wave = intSound(bytes, bytes.length(0, 3000));
    const Frames frames(bytes, wave.length());
    Exact<int> values(frames.frameNum, -7);
    const auto expect = [&](const std::string& name, const auto& featureOf) {
        for (int i = 0; i < frames.frameNum; ++i) {
            const auto start = std::int64_t{i} * (frames.frameSize - frames.overlap);
            const Exact<int> frame{
                std::span<const int>(wave.data() + start, static_cast<size_t>(frames.frameSize))};
            requireSame(values[i], featureOf(frame), name);
        }
    };
    const int order = bytes.from(1, 5);
    cAudio::wave2ashod(wave.data(), wave.length(), frames.frameSize, frames.overlap, values.data(), order);
    expect("ASHOD",
           [&](const Exact<int>& frame) { return frame2ashod(frame.data(), frame.length(), order); });
    const int method = bytes.from(0, 4);
    const bool isKnown = returns([&] {
        wave2volume(wave.data(), wave.length(), frames.frameSize, frames.overlap, values.data(), method);
    });
    requireSame(isKnown, method >= 1 && method <= 3, "a method from 1 to 3");
    if (method == 1)
        expect("volume", [](const Exact<int>& frame) {
            std::int64_t sum = 0;
            const int median = vecMedian(frame.data(), frame.length());
            for (const int x : frame) sum += std::abs(std::int64_t{x} - median);
            return clampToInt(sum);
        });
    cAudio::wave2zcr(wave.data(), wave.length(), frames.frameSize, frames.overlap, values.data());
    for (const int count : values)
        require(count >= 0 && count < frames.frameSize, "crossings between samples");
    cAudio::localAverage(values.data(), values.length());
}

/// They tile what is on.
void segments(Bytes& bytes) {
    Exact<double> vec(bytes.length(0, 70));
    for (double& x : vec) x = bytes.oneOf({0.0, 1.0, -1.0, 2.0, std::nan("")});
    int count = 0;
    const SegmentArray found(segmentFind(vec.data(), vec.length(), &count));
    std::vector<bool> isOn(vec.size());
    for (int k = 0; k < count; ++k) {
        const SEGMENT& segment = found.get()[k];
        require(k == 0 || segment.begin > found.get()[k - 1].end + 1, "a gap between segments");
        requireSame(segment.duration, segment.end - segment.begin + 1, "a duration");
        for (int i = segment.begin; i <= segment.end; ++i) isOn[size_t(i)] = true;
    }
    for (int i = 0; i < vec.length(); ++i)
        requireSame(bool(isOn[size_t(i)]), vec[i] > 0, "segments where it is on");
    cAudio::segmentPrint(found.get(), count);
    packCharIndex(vec.data(), vec.length());
}

EPDPARAM epdParam(Bytes& bytes, int fs) {
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    if (bytes.flag()) {
        param.frameSize = bytes.length(-1, 400);
        param.overlap = bytes.flag() ? 0 : param.frameSize - bytes.from(-1, 40);
    }
    if (bytes.flag()) {
        param.volRatio = bytes.flag() ? bytes.from(-1, 30) : bytes.anyInt();
        param.vhRatio = bytes.flag() ? bytes.from(-1, 30) : bytes.anyInt();
        param.diffOrder = bytes.from(1, 5);
    }
    const auto seconds = [&] { return bytes.oneOf({0.0F, 0.01F, 0.1F, 1e30F, -1.0F, std::nanf("")}); };
    if (bytes.flag()) {
        param.minSegment = seconds();
        param.maxSilBetweenWord = seconds();
        param.minLastWordDuration = seconds();
    }
    return param;
}

int sampleRate(Bytes& bytes) {
    return bytes.below(5) == 0 ? bytes.anyInt() : bytes.oneOf({8000, 16000, 1600, 640, 44100, 100});
}

void byVolume(Bytes& bytes) {
    const Exact<int> wave = intSound(bytes, bytes.length(0, mostSamples));
    const int fs = sampleRate(bytes);
    const EPDPARAM param = epdParam(bytes, fs);
    const bool hod = bytes.flag();
    int count = 0;
    const auto detect = hod ? cAudio::epdByVolHod : cAudio::epdByVol;
    const SegmentArray found(detect(wave.data(), wave.length(), fs, param, &count));
    const auto curveOf = hod ? volumeAndAshodCurve : volumeCurve;
    const Curve curve = curveOf(wave.data(), wave.length(), param);
    int last = -2;
    for (int k = 0; k < count; ++k) {
        const SEGMENT& segment = found.get()[k];
        require(segment.begin > last + 1 && segment.end >= segment.begin && segment.valid == 1,
                "segments in order");
        last = segment.end;
        for (int i = segment.begin; i <= segment.end; ++i)
            require(curve.values.at(size_t(i)) > curve.thresholds.at(0), "a segment above the threshold");
    }
}

void byVolumeAlone(Bytes& bytes) {
    const Exact<int> wave = intSound(bytes, bytes.length(0, mostSamples));
    const auto [frameSize, overlap] = twoThresholdFrames;
    const int frameNum = std::max(0, cAudio::getFrameNum2(wave.length(), frameSize, overlap));
    Exact<int> ends(frameNum + 1);
    const int count = cAudio::epdByVol2(wave.data(), wave.length(), 0, ends.data(), 0);
    require(count % 2 == 0 && count <= frameNum + 1, "segments with two ends");
    for (int i = 0; i < count; ++i)
        require(ends[i] < frameNum && (i % 2 == 0 || ends[i] >= ends[i - 1]), "an end");
    twoThresholdCurve(wave.data(), wave.length());
    int start = 0;
    int end = 0;
    cAudio::epdByVolZcr(wave.data(), wave.length(), 0, &start, &end);
    require(start > end || (start >= 0 && end < wave.length()), "a span inside the recording");
    volumeAndZcrCurve(wave.data(), wave.length());
    cAudio::waveVolumeCheck(wave.data(), wave.length(), nullptr);
}

void characters(Bytes& bytes) {
    const Exact<double> recorded =
        sound(bytes, bytes.length(0, mostSamples), bytes.oneOf({1.0, 32767.0, 1e-300, 1e300}));
    const int fs = sampleRate(bytes);
    const int maxNum = bytes.flag() ? 100 : bytes.from(-1, 4);
    Exact<double> wave = recorded;
    Exact<double> start(maxNum);
    Exact<double> end(maxNum);
    const int count =
        cAudio::charEndPointDetect(wave.data(), wave.length(), fs, start.data(), end.data(), maxNum);
    require(count >= 0 && count <= std::max(maxNum, 0), "no more characters than slots");
    for (int i = 0; i < std::max(maxNum, 0); ++i) {
        const bool isInside = start[i] >= 0 && start[i] <= end[i] && end[i] < wave.length();
        require(i < count ? isInside : start[i] == -1 && end[i] == -1,
                "characters, and empty slots behind them");
    }
    characterCurve(wave.data(), wave.length());
    wave = recorded;
    int first = 0;
    int last = 0;
    cAudio::sentenceEndPointDetect(wave.data(), wave.length(), fs, &first, &last);
    if (maxNum == 100)
        requireSame(double(first), count > 0 ? start[0] : -1.0, "a sentence from its first character");
}

void handset(Bytes& bytes) {
    Exact<double> wave = sound(bytes, bytes.length(0, mostSamples), bytes.oneOf({1.0, 1e-3, 1e300}));
    const int fs = sampleRate(bytes);
    const int nbits = bytes.flag() ? 16 : bytes.from(-40, 70);
    double ends[2] = {bytes.anyDouble(), bytes.anyDouble()};
    cAudio::endPointDetect4quokka(wave.data(), wave.length(), fs, nbits, ends);
    handsetCurve(wave.data(), wave.length(), fs);
}

/// Its files go to the current directory.
void marks(Bytes& bytes) {
    const Exact<int> volume = exactInts(bytes, bytes.length(0, 60));
    const epdStruct epd{bytes.anyDouble(), bytes.anyDouble(), bytes.anyDouble()};
    Exact<int> voiced(volume.length(), -7);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder().file("."));
    cAudio::volume2voiced(volume.data(), volume.length(), 0, &epd, voiced.data());
    std::filesystem::current_path(before);
    for (const int mark : voiced) require(mark == 0 || mark == 1, "a mark");
    cAudio::getVolumeThreshold(volume.data(), 0, volume.length(), bytes.anyInt());
}

} // namespace

void fuzz(Bytes& bytes) {
    constexpr void (*calls[])(Bytes&) = {features,   segments, byVolume, byVolumeAlone,
                                         characters, handset,  marks};
    calls[bytes.below(static_cast<int>(std::size(calls)))](bytes);
}
