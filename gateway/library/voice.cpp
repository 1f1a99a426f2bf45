// The pitch of voices.

#include "results.hpp"

#include "audio/audio.hpp"

#include <algorithm>
#include <cmath>

namespace {

/// The fields of the record that the user sets, and what the user calls them.
constexpr std::pair<const char*, const char*> userNames[] = {{"fs", "fs"},
                                                             {"minFreq", "minF0"},
                                                             {"maxFreq", "maxF0"},
                                                             {"frameRate", "frameRate"},
                                                             {"voicingThreshold", "voicingThreshold"}};

/// The library's text with the user's names for the fields.
std::string inUsersWords(std::string fault) {
    for (const auto& [field, option] : userNames) {
        const std::string wanted = field;
        for (size_t at = 0; (at = fault.find(wanted)) != std::string::npos;)
            fault.replace(at, wanted.size(), upperCase(option));
    }
    return fault;
}

VOICEPARAM readVoiceParam(const Call& call, const Options& options, int fs) {
    VOICEPARAM param;
    param.fs = fs;
    const auto read = [&](const char* name, double& field) {
        if (options.has(name)) field = options[name].positive();
    };
    read("minF0", param.minFreq);
    read("maxF0", param.maxFreq);
    read("frameRate", param.frameRate);
    param.voicingThreshold = options.number("voicingThreshold", param.voicingThreshold, 0, 1);
    if (const char* fault = voiceParamFault(param)) call.refuse(inUsersWords(fault));
    return param;
}

/// Has the library write frequencies, strengths and correlation into the host's arrays, those that the user
/// asks for; returns the frequencies.
template <typename Samples>
mxArray* track(Call& call, const Samples& wave, const VOICEPARAM& param) {
    const auto waveLen = static_cast<int>(wave.size());
    const VOICESIZES sizes = voiceSizes(waveLen, param);
    mxArray* f0 = matrix(call, 1, sizes.frameNum);
    mxArray* strength = call.wants(2) ? matrix(call, 1, sizes.frameNum) : nullptr;
    mxArray* correlation =
        call.wants(4) ? singleMatrix(call, sizes.lagNum, sizes.frameNum, "FRAMERATE") : nullptr;
    wave2f0(wave.data(), waveLen, param, mxGetPr(f0), strength ? mxGetPr(strength) : nullptr,
            correlation ? static_cast<float*>(mxGetData(correlation)) : nullptr);
    call.give(0, f0);
    if (strength) call.give(2, strength);
    if (correlation) call.give(4, correlation);
    return f0;
}

mxArray* times(const Call& call, int frameNum, double frameRate) {
    mxArray* array = matrix(call, 1, frameNum);
    for (int i = 0; i < frameNum; ++i) mxGetPr(array)[i] = i / frameRate;
    return array;
}

/// First and last sample of the runs of voiced frames, by turns, from 1. A frame reaches half a step before
/// and behind its instant.
std::vector<double> voicedSegments(std::span<const double> f0, double step) {
    const auto border = [step](size_t frame) {
        return std::round((static_cast<double>(frame) - 0.5) * step);
    };
    std::vector<double> segments;
    bool inside = false;
    for (size_t i = 0; i <= f0.size(); ++i) {
        const bool voiced = i < f0.size() && f0[i] > 0;
        if (voiced != inside) segments.push_back(border(i) + (voiced ? 1 : 0));
        inside = voiced;
    }
    return segments;
}

/// Seconds of the rows of the correlation.
mxArray* lags(const Call& call, const VOICESIZES& sizes) {
    mxArray* array = matrix(call, sizes.lagNum, 1);
    for (int i = 0; i < sizes.lagNum; ++i) mxGetPr(array)[i] = (sizes.minLag + i) / sizes.lagRate;
    return array;
}

double semitones(double freq) {
    return freq > 0 ? 69 + 12 * std::log2(freq / 440) : 0;
}

} // namespace

void wave2f0Command(Call& call) {
    const Argument input = call.input(0, "WAVE");
    const int fs = call.input(1, "FS").whole(1);
    const Options options = call.options(2, {"minF0", "maxF0", "frameRate", "voicingThreshold", "unit"});
    const bool inHz = !options.has("unit") || options["unit"].choice({{"semitone", 0}, {"Hz", 1}}) == 1;
    const VOICEPARAM param = readVoiceParam(call, options, fs);
    // The scale of the samples has no effect: the host's doubles and the integers' own numbers will do.
    mxArray* array = input.isFloating() ? track(call, input.uncheckedRecording(), param)
                                        : track(call, input.ownSamples(16), param);
    const auto waveLen = static_cast<int>(input.rows() * input.columns());
    const VOICESIZES sizes = voiceSizes(waveLen, param);
    const std::span<double> f0(mxGetPr(array), static_cast<size_t>(sizes.frameNum));
    // With a sample that is not a finite number nothing has a pitch: any other recording need not be looked
    // through.
    if (input.isFloating() && *std::max_element(f0.begin(), f0.end()) == 0)
        static_cast<void>(input.recording());
    if (call.wants(1)) call.give(1, times(call, sizes.frameNum, param.frameRate));
    if (call.wants(3)) call.give(3, segmentRows(call, voicedSegments(f0, fs / param.frameRate), waveLen));
    if (call.wants(5)) call.give(5, lags(call, sizes));
    if (!inHz) std::transform(f0.begin(), f0.end(), f0.begin(), semitones);
}
