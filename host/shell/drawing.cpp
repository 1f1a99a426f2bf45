#include "drawing.hpp"

#include "output.hpp"
#include "picture.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace shell {

namespace {

void setTimes(Axes& axes, const std::vector<double>& times) {
    if (times.size() < 2) return;
    axes.firstTime = times[0];
    axes.timeStep = times[1] - times[0];
}

/// What stands below the waveform.
struct Panel {
    mxArray output;
    Axes axes;
};

/// The output that the table shows.
Panel shownPanel(const Request& request, const Analysis& analysis) {
    const Output& shown = request.function->outputs[static_cast<size_t>(request.output)];
    Panel panel{*analysis.outputs[static_cast<size_t>(request.output)], {}};
    panel.axes.label = shown.name;
    panel.axes.gaps = shown.form == Form::curve;
    panel.axes.lags = shown.across == "lag";
    if (analysis.table.front().name == "time") setTimes(panel.axes, analysis.table.front().values);
    return panel;
}

/// Spectrogram in dB, from the function's outputs magnitude, frequency and time.
Panel spectrogramPanel(const Outputs& outputs) {
    Panel panel{*outputs.at(0), {}};
    const std::vector<double>& frequency = outputs.at(1)->data;
    panel.axes.label = "Magnitude (dB)";
    panel.axes.decibels = true;
    panel.axes.rowLabel = "Frequency (Hz)";
    panel.axes.rowStep = frequency.size() > 1 ? frequency[1] - frequency[0] : 0;
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

Panel spectrogramOf(const Analysis& analysis) {
    return spectrogramPanel(
        outputsOf(inputsOf(function("absSpectrogram"), {}, &analysis.wave, analysis.rate), 3));
}

/// A frequency in Hz over the lower part of the spectrogram.
Panel frequencyPanel(const Analysis& analysis) {
    constexpr double least = 1000;
    Panel panel = spectrogramOf(analysis);
    const std::vector<double>& times = analysis.table.at(0).values;
    const std::vector<double>& values = analysis.table.at(1).values;
    double greatest = 0;
    for (size_t i = 0; i < values.size(); ++i) {
        if (values[i] <= 0) continue;
        panel.axes.over.insert(panel.axes.over.end(), {times[i], values[i]});
        greatest = std::max(greatest, values[i]);
    }
    if (panel.axes.rowStep > 0) cropRows(panel, std::max(least, 3 * greatest));
    return panel;
}

/// The detector's curve and thresholds, with the segments for the waveform.
Panel segmentPanel(const Request& request, const Analysis& analysis) {
    const Function& function = *request.function;
    const auto inputs = inputsOf(function, request.parameters, &analysis.wave, analysis.rate);
    const Outputs outputs = outputsOf(inputs, static_cast<int>(function.outputs.size()));
    const auto at = [&](int position) -> const mxArray& {
        return *outputs.at(static_cast<size_t>(position));
    };
    const int curve = function.find(Form::curve);
    Panel panel{at(curve), {}};
    panel.axes.label = function.outputs[static_cast<size_t>(curve)].name;
    setTimes(panel.axes, at(function.find(Form::time)).data);
    if (const int threshold = function.find(Form::list); threshold >= 0)
        panel.axes.levels = at(threshold).data;
    for (size_t i = 0; i < analysis.table[0].values.size(); ++i)
        panel.axes.marks.insert(panel.axes.marks.end(),
                                {analysis.table[0].values[i], analysis.table[1].values[i]});
    return panel;
}

bool isInHz(const Request& request) {
    const mxArray* unit = find(request.parameters, "unit");
    return !unit || unit->bytes == "Hz" || unit->bytes == "hz";
}

Panel panelOf(const Request& request, const Analysis& analysis) {
    const Output& shown = request.function->outputs[static_cast<size_t>(request.output)];
    if (shown.form == Form::segments) return segmentPanel(request, analysis);
    if (shown.name == "magnitude") return spectrogramPanel(analysis.outputs);
    if (shown.name == "f0" && isInHz(request)) return frequencyPanel(analysis);
    if (shown.name == "first") {
        Panel panel = spectrogramOf(analysis);
        panel.axes.cut = analysis.table.at(0).values.at(0);
        return panel;
    }
    return shownPanel(request, analysis);
}

} // namespace

void draw(const Request& request, const Analysis& analysis, const std::string& title,
          const std::string& path) {
    Panel panel = panelOf(request, analysis);
    if (!holdsNumbers(panel.output)) throw std::runtime_error("there are no numbers to draw");
    panel.axes.rate = analysis.rate;
    drawPicture(path, title, analysis.wave.data.empty() ? nullptr : &analysis.wave, panel.output, panel.axes);
}

} // namespace shell
