#include "analysis.hpp"

#include "arrays.hpp"
#include "call.hpp"
#include "output.hpp"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace shell {

namespace {

/// Frames of several channels become the channel that the user has chosen, or the mean of all.
void takeChannel(std::vector<double>& frames, size_t channels, const Request& request) {
    const size_t length = frames.size() / channels;
    const size_t first = request.mix ? 0 : static_cast<size_t>(request.channel) - 1;
    const size_t count = request.mix ? channels : 1;
    for (size_t i = 0; i < length; ++i) {
        double sum = 0;
        for (size_t c = first; c < first + count; ++c) sum += frames[i * channels + c];
        frames[i] = sum / static_cast<double>(count);
    }
    frames.resize(length);
}

/// The recording as one column.
Recording oneChannel(const Request& request, const std::string& path) {
    const auto oneOf = [&](std::vector<double>& frames, size_t channels) {
        if (static_cast<size_t>(request.channel) > channels)
            throw std::runtime_error("has no channel " + std::to_string(request.channel) + ", only " +
                                     std::to_string(channels));
        if (channels > 1 && request.channel == 0 && !request.mix)
            throw std::runtime_error("has " + std::to_string(channels) +
                                     " channels: --channel N takes one of them, --mix their mean");
        if (channels > 1) takeChannel(frames, channels, request);
    };
    Recording recording = readRecording(path, request.raw, oneOf);
    if (recording.samples.data.empty()) throw std::runtime_error("holds no samples");
    return recording;
}

/// The times of the frames of a function that is told them and does not tell their times.
std::vector<double> timesOfFrames(const Request& request, const mxArray& wave, double rate) {
    Parameters framing;
    for (const char* name : {"frameSize", "overlap"})
        framing.emplace_back(name, *find(request.parameters, name));
    return outputsOf(inputsOf(function("wave2frames"), framing, wave, rate), 2).at(1)->data;
}

bool framesHaveNoTimes(const Function& function) {
    return function.takesRecording() && function.takes("frameSize") && function.takes("overlap") &&
           function.find(Form::time) < 0;
}

} // namespace

Outputs outputsOf(const std::vector<mxArray>& inputs, int count) {
    static const Module module{"wavepitch", mexFunction};
    Outputs outputs = callModule(module, count, inputs);
    for (auto& output : outputs) *output = withDoubles(std::move(*output));
    return outputs;
}

Analysis analyse(const Request& request, const std::string& path) {
    const Function& function = *request.function;
    Recording recording;
    if (function.takesRecording()) recording = oneChannel(request, path);
    Analysis result;
    result.rate = recording.rate;
    auto inputs = inputsOf(function, request.parameters, std::move(recording.samples), result.rate);
    result.outputs = outputsOf(inputs, request.count);
    if (function.takesRecording()) result.wave = std::move(waveOf(function, inputs));
    result.table = tableOf(function, request.output, result.outputs, result.rate);
    if (framesHaveNoTimes(function))
        result.table.insert(result.table.begin(),
                            {"time", timesOfFrames(request, result.wave, result.rate), {}});
    return result;
}

double rateOfSound(const Request& request, const Analysis& analysis) {
    for (const char* name : {"newFs", "fs"})
        if (const mxArray* given = find(request.parameters, name)) return given->data.at(0);
    return analysis.rate;
}

std::string textOf(const Request& request, const Analysis& analysis, const std::string& file) {
    std::ostringstream text;
    if (request.format != Format::columns) {
        write(text, analysis.table, request.format, file);
        return text.str();
    }
    const std::string& shown = request.function->outputs[static_cast<size_t>(request.output)].name;
    Table both = {analysis.table.front()};
    std::copy_if(analysis.table.begin() + 1, analysis.table.end(), std::back_inserter(both),
                 [&](const Column& column) { return column.name == shown; });
    write(text, both, request.format);
    return text.str();
}

void writeSound(const Request& request, const Analysis& analysis, const std::string& path) {
    writeWav(path, *analysis.outputs[static_cast<size_t>(request.output)],
             static_cast<int>(rateOfSound(request, analysis)));
}

} // namespace shell
