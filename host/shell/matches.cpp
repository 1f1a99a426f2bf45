#include "matches.hpp"

#include <algorithm>
#include <cmath>

namespace shell {

namespace {

/// An array with an element for each match; null where the function tells nothing of the kind.
const mxArray* detail(const Request& request, const Analysis& analysis, const char* name) {
    const int position = request.function->find(Form::details);
    if (position < 0 || position >= static_cast<int>(analysis.outputs.size())) return nullptr;
    const mxArray& details = *analysis.outputs[static_cast<size_t>(position)];
    for (size_t i = 0; i < details.fields.size(); ++i)
        if (details.fieldNames[i] == name) return &details.fields[i];
    return nullptr;
}

bool isSilent(double pitch) {
    return pitch == 0 || std::isnan(pitch);
}

Panel closestPanel(const Request& request, const Analysis& analysis) {
    const auto best = [&](const char* name) { return detail(request, analysis, name)->data.at(0); };
    const mxArray* frameRate = find(request.parameters, "frameRate");
    Panel panel{detail(request, analysis, "contour")->fields.front(), {}};
    panel.axes.label = detail(request, analysis, "name")->fields.at(0).bytes + " (semitones)";
    panel.axes.firstTime = best("position");
    panel.axes.timeStep = 1 / (frameRate ? frameRate->data.at(0) : 100);
    const std::vector<double>& query = find(request.parameters, "query")->data;
    const auto begin = std::find_if_not(query.begin(), query.end(), isSilent);
    for (auto pitch = begin; pitch != query.end(); ++pitch) {
        const double time = static_cast<double>(pitch - begin) * best("ratio") * panel.axes.timeStep;
        const double value = isSilent(*pitch) ? std::nan("") : *pitch - best("transposition");
        panel.axes.over.insert(panel.axes.over.end(), {best("position") + time, value});
    }
    return panel;
}

Panel distancePanel(const Request& request, const Analysis& analysis) {
    const auto position = static_cast<size_t>(request.function->find("distance"));
    const std::vector<double>& distances = analysis.outputs.at(position)->data;
    Panel panel{{distances.size(), 1, distances}, {}};
    panel.axes.label = "Distance";
    panel.axes.rowFirst = 1;
    panel.axes.rowStep = 1;
    panel.axes.rowLabel = "Rank";
    return panel;
}

} // namespace

bool hasMatches(const Request& request, const Analysis& analysis) {
    const mxArray* contours = detail(request, analysis, "contour");
    return request.output == 0 && contours && !contours->fields.empty();
}

std::vector<Panel> matchPanels(const Request& request, const Analysis& analysis) {
    return {closestPanel(request, analysis), distancePanel(request, analysis)};
}

} // namespace shell
