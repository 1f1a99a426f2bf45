#include "drawing.hpp"

#include "matches.hpp"
#include "output.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <strings.h>

namespace shell {

namespace {

void setTimes(Axes& axes, const std::vector<double>& times) {
    if (times.size() < 2) return;
    axes.firstTime = times[0];
    axes.timeStep = times[1] - times[0];
}

/// Rows at lags in seconds, instead of samples from 0.
void setLags(Axes& axes, const std::vector<double>& lags) {
    if (lags.size() < 2) return;
    axes.rowFirst = 1000 * lags[0];
    axes.rowStep = 1000 * (lags[1] - lags[0]);
    axes.rowLabel = "Lag (ms)";
}

/// Curves of pitch: 0 is where there is none, and the unit is Hz or semitones.
bool isPitch(const std::string& name) {
    return name == "f0" || name == "pitch" || name == "pv";
}

/// Whether the pitch is in Hz, which is the usual unit of outputs whose name says frequency.
bool isInHz(const Request& request, const std::string& name) {
    const mxArray* unit = find(request.parameters, "unit");
    if (!unit) return name == "f0";
    return strcasecmp(unit->bytes.c_str(), "Hz") == 0;
}

/// The pitch vector of a recording: tenths of semitones from the first pitch to the last, whose places in the
/// recording are not told.
bool isTrimmedPitch(const Function& function, const Output& shown) {
    return shown.name == "pv" && function.takesRecording();
}

/// A pitch with the pitch function that it was found in.
bool isTracked(const Function& function, const Output& shown) {
    return shown.name == "pitch" && function.find("pfMat") >= 0;
}

std::string labelOf(const Request& request, const std::string& name) {
    if (!isPitch(name)) return name;
    return isInHz(request, name) ? "Pitch (Hz)" : "Pitch (semitones)";
}

double inHz(double semitones) {
    return 440 * std::pow(2, (semitones - 69) / 12);
}

const mxArray& at(const Outputs& outputs, int position) {
    return *outputs.at(static_cast<size_t>(position));
}

/// The output that the table shows.
Panel shownPanel(const Request& request, const Analysis& analysis) {
    const Output& shown = request.function->outputs[static_cast<size_t>(request.output)];
    Panel panel{at(analysis.outputs, request.output), {}};
    panel.axes.label = labelOf(request, shown.name);
    panel.axes.rate = analysis.rate;
    panel.axes.gaps = isPitch(shown.name);
    panel.axes.lags = shown.across == "lag";
    if (const int lag = request.function->find("lag"); panel.axes.lags && lag >= 0)
        setLags(panel.axes, at(analysis.outputs, lag).data);
    panel.axes.sound = shown.form == Form::sound;
    if (panel.axes.sound) panel.axes.rate = rateOfSound(request, analysis);
    if (analysis.table.front().name == "time") setTimes(panel.axes, analysis.table.front().values);
    if (const mxArray* step = find(request.parameters, "timeStep")) panel.axes.timeStep = step->data.at(0);
    return panel;
}

/// A pitch vector in semitones, one for each 32 ms.
Panel pitchVectorPanel(const Analysis& analysis) {
    Panel panel{*analysis.outputs.front(), {}};
    for (double& tenths : panel.output.data) tenths /= 10;
    panel.axes.label = "Pitch (semitones)";
    panel.axes.gaps = true;
    panel.axes.timeStep = 0.032;
    return panel;
}

/// Spectrogram in dB, from the function's outputs magnitude, frequency and time.
Panel spectrogramPanel(const Outputs& outputs, double rate) {
    Panel panel{*outputs.at(0), {}};
    const std::vector<double>& frequency = outputs.at(1)->data;
    panel.axes.label = "Magnitude (dB)";
    panel.axes.decibels = true;
    panel.axes.rowLabel = "Frequency (Hz)";
    panel.axes.rowStep = frequency.size() > 1 ? frequency[1] - frequency[0] : 0;
    panel.axes.rate = rate;
    setTimes(panel.axes, outputs.at(2)->data);
    return panel;
}

/// Leaves the rows below a frequency, and at least two.
void cropRows(Panel& panel, double frequency) {
    const auto wanted = static_cast<size_t>(std::max(2.0, std::ceil(frequency / panel.axes.rowStep)));
    const size_t rows = std::min(panel.output.rows, wanted);
    mxArray cropped{rows, panel.output.columns, {}};
    for (size_t column = 0; column < panel.output.columns; ++column) {
        const auto first =
            panel.output.data.begin() + static_cast<std::ptrdiff_t>(column * panel.output.rows);
        cropped.data.insert(cropped.data.end(), first, first + static_cast<std::ptrdiff_t>(rows));
    }
    panel.output = std::move(cropped);
}

Panel spectrogramOf(const Analysis& analysis, const Parameters& framing) {
    return spectrogramPanel(
        outputsOf(inputsOf(function("absSpectrogram"), framing, analysis.wave, analysis.rate), 3),
        analysis.rate);
}

/// A pitch over the lower part of the spectrogram: windows that show harmonics, no more than can be seen.
Panel frequencyPanel(const Request& request, const Analysis& analysis) {
    constexpr double least = 1000;
    const double count = static_cast<double>(analysis.wave.data.size());
    const double frameSize = std::round(0.04 * analysis.rate);
    const double step = std::max(std::round(0.005 * analysis.rate), std::ceil(count / 3000));
    const double overlap = std::max(0.0, frameSize - step);
    Panel panel =
        spectrogramOf(analysis, {{"frameSize", {1, 1, {frameSize}}}, {"overlap", {1, 1, {overlap}}}});
    const std::vector<double>& times = analysis.table.at(0).values;
    const std::vector<double>& values = analysis.table.at(1).values;
    const bool areInHz = isInHz(request, "f0");
    double greatest = 0;
    for (size_t i = 0; i < values.size(); ++i) {
        if (values[i] == 0) continue;
        const double frequency = areInHz ? values[i] : inHz(values[i]);
        panel.axes.over.insert(panel.axes.over.end(), {times[i], frequency});
        greatest = std::max(greatest, frequency);
    }
    if (panel.axes.rowStep > 0) cropRows(panel, std::max(least, 3 * greatest));
    return panel;
}

/// The pitch function with the lags chosen, each frame by its own largest value: quiet ones show as much as
/// loud ones.
Panel lagPanel(const Request& request, const Analysis& analysis) {
    const Function& function = *request.function;
    const Outputs& outputs = analysis.outputs;
    Panel panel{at(outputs, function.find("pfMat")), {}};
    mxArray& matrix = panel.output;
    for (size_t column = 0; column < matrix.columns; ++column) {
        const auto first = matrix.data.begin() + static_cast<std::ptrdiff_t>(column * matrix.rows);
        const auto last = first + static_cast<std::ptrdiff_t>(matrix.rows);
        double largest = std::numeric_limits<double>::min();
        std::for_each(first, last, [&](double value) { largest = std::max(largest, std::abs(value)); });
        std::for_each(first, last, [&](double& value) { value /= largest; });
    }
    const std::vector<double>& times = at(outputs, function.find(Form::time)).data;
    const std::vector<double>& pitch = at(outputs, request.output).data;
    const bool areInHz = isInHz(request, "pitch");
    for (size_t i = 0; i < pitch.size(); ++i)
        if (pitch[i] != 0)
            panel.axes.over.insert(panel.axes.over.end(),
                                   {times[i], 1000 / (areInHz ? pitch[i] : inHz(pitch[i]))});
    panel.axes.label = "Pitch function";
    panel.axes.lags = true;
    panel.axes.rate = analysis.rate;
    setTimes(panel.axes, times);
    return panel;
}

/// The detector's curve and thresholds.
Panel detectorPanel(const Request& request, const Analysis& analysis) {
    constexpr double noDecibels = -1e9; // of frames of zeros
    const Function& function = *request.function;
    const Outputs& outputs = analysis.outputs;
    const int curve = function.find(Form::curve);
    Panel panel{at(outputs, curve), {}};
    std::replace_if(
        panel.output.data.begin(), panel.output.data.end(), [](double value) { return value < noDecibels; },
        std::nan(""));
    panel.axes.label = function.outputs[static_cast<size_t>(curve)].name;
    panel.axes.rate = analysis.rate;
    setTimes(panel.axes, at(outputs, function.find(Form::time)).data);
    if (const int threshold = function.find(Form::list); threshold >= 0)
        for (const double level : at(outputs, threshold).data)
            if (level >= noDecibels) panel.axes.levels.push_back(level);
    return panel;
}

std::vector<Panel> panelsOf(const Request& request, const Analysis& analysis) {
    const Output& shown = request.function->outputs[static_cast<size_t>(request.output)];
    if (shown.form == Form::segments) return {detectorPanel(request, analysis)};
    if (shown.name == "magnitude") return {spectrogramPanel(analysis.outputs, analysis.rate)};
    if (isTrimmedPitch(*request.function, shown)) return {pitchVectorPanel(analysis)};
    if (shown.name == "f0") return {frequencyPanel(request, analysis)};
    if (isTracked(*request.function, shown))
        return {lagPanel(request, analysis), shownPanel(request, analysis)};
    if (shown.name == "first") {
        Panel panel = spectrogramOf(analysis, {});
        panel.axes.cut = analysis.table.at(0).values.at(0);
        return {panel};
    }
    if (hasMatches(request, analysis)) return matchPanels(request, analysis);
    return {shownPanel(request, analysis)};
}

/// The recording, with its segments where they are shown.
Above aboveOf(const Request& request, const Analysis& analysis) {
    const Output& shown = request.function->outputs[static_cast<size_t>(request.output)];
    Above above{isTrimmedPitch(*request.function, shown) ? nullptr : &analysis.wave, analysis.rate};
    if (shown.form != Form::segments) return above;
    for (size_t i = 0; i < analysis.table[0].values.size(); ++i)
        above.marks.insert(above.marks.end(), {analysis.table[0].values[i], analysis.table[1].values[i]});
    return above;
}

} // namespace

int countToDraw(const Function& function, int output) {
    const Output& shown = function.outputs[static_cast<size_t>(output)];
    const bool drawsAll = shown.form == Form::segments || isTracked(function, shown);
    return drawsAll ? static_cast<int>(function.outputs.size()) : countFor(function, output);
}

void draw(const Request& request, const Analysis& analysis, const std::string& title,
          const std::string& path) {
    if (!holdsNumbers(at(analysis.outputs, request.output)))
        throw std::runtime_error("there are no numbers to draw");
    drawPicture(path, title, aboveOf(request, analysis), panelsOf(request, analysis));
}

} // namespace shell
