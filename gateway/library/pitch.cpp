// Pitch tracking.

#include "framing.hpp"
#include "pitchParam.hpp"

#include "audio/audio.hpp"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

struct Track {
    PTPARAM param;
    Framing framing;
    std::vector<double> pitch;
    std::vector<double> clarity{}; // where the user asks for it
    mxArray* pfMat = nullptr;      // the same
    int first = 0;                 // the frames that are handed out
    int count = 0;
};

/// Zeros at both ends are cut here, so that the other results can be cut with them.
Track track(const Call& call, const std::vector<int>& wave, PTPARAM param) {
    const Framing framing{param.fs, param.frameSize, param.overlap, static_cast<int>(wave.size())};
    const int frameNum = framing.frameNum();
    Track result{param, framing, std::vector<double>(static_cast<size_t>(frameNum))};
    if (call.wants(2)) result.clarity.resize(result.pitch.size());
    if (call.wants(3)) result.pfMat = matrix(call, param.pfLen, frameNum, "PFLEN and OVERLAP");
    result.param.cutLeadingTrailingZero = 0;
    ptByDpOverPfOnce<double, int>(wave.data(), framing.waveLen, result.param, result.pitch.data(),
                                  call.wants(2) ? result.clarity.data() : nullptr,
                                  result.pfMat ? mxGetPr(result.pfMat) : nullptr, nullptr);
    result.param.cutLeadingTrailingZero = param.cutLeadingTrailingZero;
    int last = frameNum - 1;
    if (param.cutLeadingTrailingZero != 0)
        cAudio::trimPitch(result.pitch.data(), frameNum, result.first, last);
    result.count = std::max(0, last - result.first + 1);
    return result;
}

mxArray* frames(const Track& track, const double* values) {
    return row(std::vector<double>(values + track.first, values + track.first + track.count));
}

mxArray* pfMatOf(const Call& call, const Track& track) {
    if (track.count == static_cast<int>(track.pitch.size())) return track.pfMat;
    const int pfLen = track.param.pfLen;
    mxArray* part = matrix(call, pfLen, track.count);
    std::copy_n(mxGetPr(track.pfMat) + static_cast<ptrdiff_t>(pfLen) * track.first,
                static_cast<ptrdiff_t>(pfLen) * track.count, mxGetPr(part));
    return part;
}

int readNbits(const Call& call, const Argument& wave) {
    return call.has(2) ? call.input(2, "NBITS").bitDepth() : wave.sampleBits();
}

} // namespace

void wave2pitchCommand(Call& call) {
    const Argument input = call.input(0, "WAVE");
    const int fs = call.input(1, "FS").whole(1);
    std::vector<const char*> names = pitchParamNames();
    names.push_back("unit");
    const Options options = call.options(2, names);
    const bool hz = options.has("unit") && options["unit"].choice({{"semitone", 0}, {"Hz", 1}}) == 1;
    const int nbits = options.has("nbits") ? options["nbits"].bitDepth() : input.sampleBits();
    const std::vector<int> wave = input.samples(nbits);
    Track result = track(call, wave, readPitchParam(call, options, fs, nbits));
    if (hz)
        for (double& pitch : result.pitch)
            pitch = static_cast<double>(cAudio::pitch2freq(static_cast<float>(pitch)));
    call.give(0, frames(result, result.pitch.data()));
    if (call.wants(1)) call.give(1, result.framing.time(result.first, result.count));
    if (call.wants(2)) call.give(2, frames(result, result.clarity.data()));
    if (call.wants(3)) call.give(3, pfMatOf(call, result));
    if (call.wants(4)) call.give(4, structOf(result.param));
}

void wave2pvCommand(Call& call) {
    const Argument input = call.input(0, "WAVE");
    const int fs = call.input(1, "FS").whole(1);
    const int nbits = readNbits(call, input);
    const std::vector<short> wave = input.shortSamples(nbits);
    requireRoom(call, static_cast<double>(wave.size()) * 8000 / fs, "FS"); // the tracker works at 8 kHz
    int* values = nullptr;
    int count = 0;
    cAudio::bGetPitch(wave, values, count, fs, nbits);
    const std::unique_ptr<int, decltype(&std::free)> owner(values, std::free);
    call.give(0, row(std::vector<int>(values, values + count)));
}

void isWaveSilenceCommand(Call& call) {
    const Argument input = call.input(0, "WAVE");
    const int fs = call.input(1, "FS").whole(1);
    const int nbits = readNbits(call, input);
    const int volTh = call.has(3) ? call.input(3, "VOLTH").whole(0) : 256;
    call.give(0, scalar(cAudio::isWaveSilence(input.shortSamples(nbits), fs, nbits, volTh) ? 1 : 0));
}

void ptParamCommand(Call& call) {
    const int fs = call.input(0, "FS").whole(1);
    const int nbits = call.has(1) ? call.input(1, "NBITS").bitDepth() : 16;
    const int pfType =
        call.has(2) ? call.input(2, "PFTYPE").choice({{"amdf", PF_AMDF}, {"acf", PF_ACF}}, true) : PF_ACF;
    PTPARAM param{};
    const auto set = [&](const char* file) {
        cAudio::ptParamSet(&param, fs, nbits, static_cast<PF_TYPE>(pfType), file);
    };
    set(nullptr);
    const PTPARAM usual = param;
    if (call.has(3)) call.input(3, "PARAMFILE").readFile(set);
    checkPitchParam(call, param, usual);
    call.give(0, structOf(param));
}
