// The module wavepitchLibrary: every operation of the library by name. Its first input names a command, the
// others are the command's; each command reads and checks them, makes its library call and hands the results
// back. No input reaches the library unchecked.

#include "command.hpp"

#include <algorithm>
#include <new>
#include <string>

namespace {

constexpr Command table[] = {
    // name, least and most inputs, most outputs, usage, function
    {"wave2pfMat", 6, 6, 1, "pfMat = wave2pfMat (wave, frameSize, overlap, pfLen, pfType, pfMethod)",
     wave2pfMatCommand},
    {"wave2pitch", 2, anyNumber, 5,
     "[pitch, time, clarity, pfMat, param] = wave2pitch (wave, fs, name, value, ...)", wave2pitchCommand},
    {"wave2f0", 2, anyNumber, 6,
     "[f0, time, strength, segments, correlation, lag] = wave2f0 (wave, fs, name, value, ...)",
     wave2f0Command},
    {"wave2pv", 2, 3, 1, "pv = wave2pv (wave, fs, nbits)", wave2pvCommand},
    {"isWaveSilence", 2, 4, 1, "silent = isWaveSilence (wave, fs, nbits, volTh)", isWaveSilenceCommand},
    {"ptParam", 1, 4, 1, "param = ptParam (fs, nbits, pfType, paramFile)", ptParamCommand},
    {"endPoints", 2, anyNumber, 4,
     "[segments, curve, threshold, time] = endPoints (wave, fs, method, name, value, ...)", endPointsCommand},
    {"wave2volume", 2, anyNumber, 2, "[volume, time] = wave2volume (wave, fs, name, value, ...)",
     wave2volumeCommand},
    {"wave2zcr", 2, anyNumber, 2, "[zcr, time] = wave2zcr (wave, fs, name, value, ...)", wave2zcrCommand},
    {"wave2ashod", 2, anyNumber, 2, "[ashod, time] = wave2ashod (wave, fs, name, value, ...)",
     wave2ashodCommand},
    {"waveVolumeCheck", 1, 2, 2, "[code, meaning] = waveVolumeCheck (wave, paramFile)",
     waveVolumeCheckCommand},
    {"wave2frames", 2, anyNumber, 2, "[frames, time] = wave2frames (wave, fs, name, value, ...)",
     wave2framesCommand},
    {"absSpectrogram", 2, anyNumber, 3,
     "[magnitude, frequency, time] = absSpectrogram (wave, fs, name, value, ...)", absSpectrogramCommand},
    {"uvCut", 2, anyNumber, 2, "[first, time] = uvCut (wave, fs, name, value, ...)", uvCutCommand},
    {"waveFilter", 3, 3, 1, "out = waveFilter (b, a, wave)", waveFilterCommand},
    {"waveEcho", 4, 4, 1, "out = waveEcho (wave, fs, delay, gain)", waveEchoCommand},
    {"waveResample", 3, 4, 1, "out = waveResample (wave, oldFs, newFs, nbits)", waveResampleCommand},
    {"pitch2wave", 3, 4, 1, "wave = pitch2wave (pitch, pitchRate, fs, duration)", pitch2waveCommand},
    {"note2wave", 3, 3, 1, "wave = note2wave (pitch, duration, fs)", note2waveCommand},
    {"note2pv", 3, 3, 1, "pitch = note2pv (pitch, duration, timeStep)", note2pvCommand},
    {"pitch2freq", 1, 1, 1, "frequency = pitch2freq (pitch)", pitch2freqCommand},
    {"freq2pitch", 1, 1, 1, "pitch = freq2pitch (frequency)", freq2pitchCommand},
    {"findTune", 2, anyNumber, 3, "[rank, distance, details] = findTune (query, tunes, name, value, ...)",
     findTuneCommand},
    {"linearScaling", 2, anyNumber, 4,
     "[distance, ratio, distances, shifts] = linearScaling (query, reference, name, value, ...)",
     linearScalingCommand},
    {"lrShiftDist", 2, 3, 3, "[distance, position, shift] = lrShiftDist (vec1, vec2, distanceType)",
     lrShiftDistCommand},
    {"setCover", 1, 2, 2, "[chosen, coverage] = setCover (sets, maxSetNum)", setCoverCommand},
};

const Command& commandOf(int nrhs, const mxArray* prhs[]) {
    if (nrhs < 1) refuse(mexFunctionName(), "the name of a command is wanted");
    const std::string name = Argument(mexFunctionName(), "COMMAND", prhs[0]).text();
    const auto* const command =
        std::find_if(std::begin(table), std::end(table), [&](const Command& c) { return name == c.name; });
    if (command == std::end(table)) refuse(mexFunctionName(), "no command is named \"" + name + "\"");
    return *command;
}

} // namespace

std::span<const Command> commands() {
    return table;
}

void mexFunction(int nlhs, mxArray* plhs[], int nrhs, const mxArray* prhs[]) {
    const Command& command = commandOf(nrhs, prhs);
    const int inputCount = nrhs - 1;
    if (inputCount < command.leastInputs || inputCount > command.mostInputs || nlhs > command.mostOutputs)
        refuse(command.name, std::string("usage is ") + command.usage);
    Call call(command, nlhs, plhs, inputCount, prhs + 1);
    std::string failure;
    try {
        command.run(call);
        return;
    } catch (const char* message) {
        failure = message;
    } catch (const std::bad_alloc&) {
        failure = "there is not enough memory";
    }
    refuse(command.name, failure);
}
