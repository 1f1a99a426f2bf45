#include "analysis.hpp"

#include "arrays.hpp"
#include "call.hpp"
#include "output.hpp"

#include <sstream>
#include <stdexcept>

namespace shell {

namespace {

/// The channel that the user has chosen, or the mean of all.
mxArray oneChannel(mxArray samples, int channel, bool mix) {
    const size_t length = samples.rows;
    const size_t channels = samples.columns;
    if (length == 0) throw std::runtime_error("holds no samples");
    if (static_cast<size_t>(channel) > channels)
        throw std::runtime_error("has no channel " + std::to_string(channel) + ", only " +
                                 std::to_string(channels));
    if (channels == 1) return samples;
    if (channel == 0 && !mix)
        throw std::runtime_error("has " + std::to_string(channels) +
                                 " channels: --channel N takes one of them, --mix their mean");
    mxArray result{length, 1, std::vector<double>(length)};
    const size_t first = mix ? 0 : static_cast<size_t>(channel) - 1;
    const size_t count = mix ? channels : 1;
    for (size_t c = first; c < first + count; ++c)
        for (size_t i = 0; i < length; ++i) result.data[i] += samples.data[c * length + i];
    for (double& sample : result.data) sample /= static_cast<double>(count);
    return result;
}

/// The times of the frames of a function that is told them and does not tell their times.
mxArray timesOfFrames(const Request& request, const mxArray& wave, double rate) {
    Parameters framing;
    for (const char* name : {"frameSize", "overlap"})
        framing.emplace_back(name, *find(request.parameters, name));
    return *outputsOf(inputsOf(function("wave2frames"), framing, &wave, rate), 2).at(1);
}

bool framesHaveNoTimes(const Function& function) {
    return function.takesRecording() && function.takes("frameSize") && function.takes("overlap") &&
           function.find(Form::time) < 0;
}

/// The sample rate of what comes out.
double rateOfSound(const Request& request, double rate) {
    for (const char* name : {"newFs", "fs"})
        if (const mxArray* given = find(request.parameters, name)) return given->data.at(0);
    return rate;
}

} // namespace

Outputs outputsOf(const std::vector<mxArray>& inputs, int count) {
    static const Module module{"wavepitch", mexFunction};
    Outputs outputs = callModule(module, count, inputs);
    for (auto& output : outputs) *output = withDoubles(*output);
    return outputs;
}

Analysis analyse(const Request& request, const std::string& recording) {
    const Function& function = *request.function;
    Analysis result;
    if (function.takesRecording()) {
        Recording read = readRecording(recording, request.raw);
        result.wave = oneChannel(std::move(read.samples), request.channel, request.mix);
        result.rate = read.rate;
    }
    const mxArray* wave = function.takesRecording() ? &result.wave : nullptr;
    result.outputs = outputsOf(inputsOf(function, request.parameters, wave, result.rate),
                               countFor(function, request.output));
    result.table = tableOf(function, request.output, result.outputs, result.rate);
    if (framesHaveNoTimes(function))
        result.table.insert(result.table.begin(),
                            {"time", timesOfFrames(request, result.wave, result.rate).data, ""});
    return result;
}

std::string textOf(const Request& request, const Analysis& analysis, const std::string& file) {
    std::ostringstream text;
    write(text, analysis.table, request.format, file);
    return text.str();
}

void writeSound(const Request& request, const Analysis& analysis, const std::string& path) {
    writeWav(path, *analysis.outputs[static_cast<size_t>(request.output)],
             static_cast<int>(rateOfSound(request, analysis.rate)));
}

} // namespace shell
