// Frame features, end-point detectors and the volume check.

#include "framing.hpp"

#include "audio/audio.hpp"
#include "audio/endPoint/curves.hpp"

#include <algorithm>

namespace {

namespace endPoint = wavepitch::endPoint;

/// What a detector has found and seen. Segments are samples from 1, first and last by turns.
struct Detection {
    Framing framing;
    std::vector<double> segments{};
    endPoint::Curve curve{};

    void addFrames(int first, int last) {
        segments.insert(segments.end(), {framing.firstSample(first), framing.lastSample(last)});
    }
    void addSamples(double first, double last) {
        if (first <= last) segments.insert(segments.end(), {first + 1, last + 1});
    }
};

struct Recording {
    const Call& call;
    Argument input;
    int fs;

    Options options(const std::vector<const char*>& names) const { return call.options(3, names); }
    int bitDepth(const Options& options) const {
        return options.has("nbits") ? options["nbits"].bitDepth() : input.sampleBits();
    }
    Framing framing(endPoint::FrameLayout frames) const {
        return {fs, frames.frameSize, frames.overlap, static_cast<int>(input.rows() * input.columns())};
    }
    /// Whether the user asks for the curve, its thresholds or its time.
    bool wantsCurve() const { return call.wants(1); }
};

EPDPARAM readEpdParam(const Options& options, int fs) {
    constexpr double mostSeconds = 1e6;
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    param.frameSize = options.whole("frameSize", std::max(1, param.frameSize), 1);
    param.overlap = options.whole("overlap", 0, 0, param.frameSize - 1);
    param.volRatio = options.whole("volRatio", param.volRatio, 1);
    param.vhRatio = options.whole("vhRatio", param.vhRatio, 1);
    param.diffOrder = options.whole("diffOrder", param.diffOrder, 1, 5);
    const auto seconds = [&](const char* name, float& field) {
        field = static_cast<float>(options.number(name, static_cast<double>(field), 0, mostSeconds));
    };
    seconds("minSegment", param.minSegment);
    seconds("maxSilBetweenWord", param.maxSilBetweenWord);
    seconds("minLastWordDuration", param.minLastWordDuration);
    return param;
}

Detection byVolumeOrHod(const Recording& recording, bool hod) {
    std::vector<const char*> names{"nbits",      "frameSize",         "overlap",
                                   "minSegment", "maxSilBetweenWord", "minLastWordDuration"};
    if (hod)
        names.insert(names.end(), {"vhRatio", "diffOrder"});
    else
        names.push_back("volRatio");
    const Options options = recording.options(names);
    const std::vector<int> wave = recording.input.samples(recording.bitDepth(options));
    const auto waveLen = static_cast<int>(wave.size());
    const EPDPARAM param = readEpdParam(options, recording.fs);
    Detection found{recording.framing({param.frameSize, param.overlap})};
    int segNum = 0;
    const auto detect = hod ? cAudio::epdByVolHod : cAudio::epdByVol;
    const SegmentArray segments(detect(wave.data(), waveLen, recording.fs, param, &segNum));
    std::for_each_n(segments.get(), segNum, [&](const SEGMENT& s) { found.addFrames(s.begin, s.end); });
    const auto curveOf = hod ? endPoint::volumeAndAshodCurve : endPoint::volumeCurve;
    if (recording.wantsCurve()) found.curve = curveOf(wave.data(), waveLen, param);
    return found;
}

Detection byVolume(const Recording& recording) {
    return byVolumeOrHod(recording, false);
}

Detection byVolumeAndAshod(const Recording& recording) {
    return byVolumeOrHod(recording, true);
}

Detection byTwoThresholds(const Recording& recording) {
    const std::vector<int> wave = recording.input.samples(recording.bitDepth(recording.options({"nbits"})));
    Detection found{recording.framing(endPoint::twoThresholdFrames)};
    const int waveLen = found.framing.waveLen;
    std::vector<int> frames(static_cast<size_t>(found.framing.frameNum()) + 1);
    const int count = cAudio::epdByVol2(wave.data(), waveLen, 0, frames.data(), 0);
    for (size_t i = 0; i < static_cast<size_t>(count); i += 2) found.addFrames(frames[i], frames[i + 1]);
    if (recording.wantsCurve()) found.curve = endPoint::twoThresholdCurve(wave.data(), waveLen);
    return found;
}

Detection byVolumeAndZcr(const Recording& recording) {
    const std::vector<int> wave = recording.input.samples(recording.bitDepth(recording.options({"nbits"})));
    Detection found{recording.framing(endPoint::volumeAndZcrFrames)};
    const int waveLen = found.framing.waveLen;
    int start = 0;
    int end = 0;
    cAudio::epdByVolZcr(wave.data(), waveLen, 0, &start, &end);
    found.addSamples(start, end);
    if (recording.wantsCurve()) found.curve = endPoint::volumeAndZcrCurve(wave.data(), waveLen);
    return found;
}

Detection byCharacters(const Recording& recording) {
    const int maxNum = recording.options({"maxNum"}).whole("maxNum", 100, 1, 1000000);
    std::vector<double> wave = recording.input.unitSamples().taken();
    Detection found{recording.framing(endPoint::characterFrames)};
    const int waveLen = found.framing.waveLen;
    std::vector<double> start(static_cast<size_t>(maxNum));
    std::vector<double> end(start.size());
    const int count =
        cAudio::charEndPointDetect(wave.data(), waveLen, recording.fs, start.data(), end.data(), maxNum);
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) found.addSamples(start[i], end[i]);
    if (recording.wantsCurve()) found.curve = endPoint::characterCurve(wave.data(), waveLen);
    return found;
}

Detection bySentence(const Recording& recording) {
    recording.options({});
    std::vector<double> wave = recording.input.unitSamples().taken();
    Detection found{recording.framing(endPoint::characterFrames)};
    const int waveLen = found.framing.waveLen;
    int start = -1;
    int end = -1;
    cAudio::sentenceEndPointDetect(wave.data(), waveLen, recording.fs, &start, &end);
    if (start >= 0) found.addSamples(start, end);
    if (recording.wantsCurve()) found.curve = endPoint::characterCurve(wave.data(), waveLen);
    return found;
}

Detection byHandset(const Recording& recording) {
    const int nbits = recording.bitDepth(recording.options({"nbits"}));
    std::vector<double> wave = recording.input.unitSamples().taken();
    Detection found{recording.framing(endPoint::handsetFrames)};
    const int waveLen = found.framing.waveLen;
    double frames[2] = {1e9, -1e9}; // where nothing is marked, the first sample comes out behind the last
    cAudio::endPointDetect4quokka(wave.data(), waveLen, recording.fs, nbits, frames);
    found.addSamples(frames[0], frames[1]);
    if (recording.wantsCurve()) found.curve = endPoint::handsetCurve(wave.data(), waveLen, recording.fs);
    return found;
}

/// A feature of frames, written by the library: compute (wave, framing, values).
template <typename Compute>
void giveFeature(Call& call, const Options& options, Compute compute) {
    const Argument input = call.input(0, "WAVE");
    const int fs = call.input(1, "FS").whole(1);
    const int nbits = options.has("nbits") ? options["nbits"].bitDepth() : input.sampleBits();
    const std::vector<int> wave = input.samples(nbits);
    const Framing framing = readFraming(options, fs, static_cast<int>(wave.size()));
    std::vector<int> values(static_cast<size_t>(framing.frameNum()));
    compute(wave.data(), framing, values.data());
    call.give(0, row(values));
    if (call.wants(1)) call.give(1, framing.time());
}

} // namespace

void endPointsCommand(Call& call) {
    static constexpr Detection (*detectors[])(const Recording&) = {
        byVolume, byVolumeAndAshod, byTwoThresholds, byVolumeAndZcr, byCharacters, bySentence, byHandset};
    const Argument input = call.input(0, "WAVE");
    const int fs = call.input(1, "FS").whole(1);
    const int method = call.has(2) ? call.input(2, "METHOD")
                                         .choice({{"volume", 0},
                                                  {"volumeHod", 1},
                                                  {"twoThreshold", 2},
                                                  {"volumeZcr", 3},
                                                  {"character", 4},
                                                  {"sentence", 5},
                                                  {"handset", 6}})
                                   : 0;
    const Detection found = detectors[method]({call, input, fs});
    call.give(0, segmentRows(call, found.segments, found.framing.waveLen));
    if (call.wants(1)) call.give(1, row(found.curve.values));
    if (call.wants(2)) call.give(2, row(found.curve.thresholds));
    if (call.wants(3)) call.give(3, found.framing.time());
}

void wave2volumeCommand(Call& call) {
    const Options options = call.options(2, {"frameSize", "overlap", "nbits", "method"});
    const int method = options.whole("method", 1, 1, 3);
    giveFeature(call, options, [=](const int* wave, const Framing& f, int* volume) {
        wave2volume(wave, f.waveLen, f.frameSize, f.overlap, volume, method);
    });
}

void wave2zcrCommand(Call& call) {
    const Options options = call.options(2, {"frameSize", "overlap", "nbits"});
    giveFeature(call, options, [](const int* wave, const Framing& f, int* zcr) {
        cAudio::wave2zcr(wave, f.waveLen, f.frameSize, f.overlap, zcr);
    });
}

void wave2ashodCommand(Call& call) {
    const Options options = call.options(2, {"frameSize", "overlap", "nbits", "order"});
    const int order = options.whole("order", 4, 1, 5);
    giveFeature(call, options, [=](const int* wave, const Framing& f, int* ashod) {
        cAudio::wave2ashod(wave, f.waveLen, f.frameSize, f.overlap, ashod, order);
    });
}

void waveVolumeCheckCommand(Call& call) {
    static constexpr const char* meanings[] = {"fit", "too quiet", "too noisy", "clipped"};
    const std::vector<int> wave = call.input(0, "WAVE").samples(16);
    int code = 0;
    const auto check = [&](const char* file) {
        code = cAudio::waveVolumeCheck(wave.data(), static_cast<int>(wave.size()), file);
    };
    if (call.has(1))
        call.input(1, "PARAMFILE").readFile(check);
    else
        check(nullptr);
    call.give(0, scalar(code));
    if (call.wants(1)) call.give(1, mxCreateString(meanings[code]));
}
