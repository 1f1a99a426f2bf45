#include "picture.hpp"

#include "gnuplot.hpp"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>
#include <stdexcept>
#include <vector>

namespace {

// Pixels of the plot; finer detail than that is thinned out before it is handed on.
constexpr size_t mostColumns = 2000;
constexpr size_t mostRows = 1000;
constexpr size_t mostBuckets = 2000;

constexpr const char* palette = // dark to bright, evenly in lightness
    "set palette defined (0 '#440154', 1 '#472d7b', 2 '#3b528b', 3 '#2c728e', 4 '#21918c', 5 '#28ae80', "
    "6 '#5ec962', 7 '#addc30', 8 '#fde725')";
constexpr const char* signedPalette = // blue below zero, red above
    "set palette defined (0 '#053061', 1 '#2166ac', 2 '#4393c3', 3 '#92c5de', 4 '#d1e5f0', 5 '#f7f7f7', "
    "6 '#fddbc7', 7 '#f4a582', 8 '#d6604d', 9 '#b2182b', 10 '#67001f')";

/// Positions along one axis of a matrix: element i lies at first + i * step.
struct Scale {
    double first;
    double step;
    std::string label;

    double at(double index) const { return first + index * step; }
};

Scale columnScale(const Axes& axes) {
    if (axes.timeStep > 0) return {axes.firstTime, axes.timeStep, "Time (s)"};
    if (!axes.frames) return {1, 1, "Column"};
    const double hop = axes.frameSize - axes.overlap;
    const double centre = axes.frameSize / 2;
    if (!(hop > 0)) throw std::runtime_error("--frames: SIZE must exceed OVERLAP");
    if (axes.rate > 0) return {centre / axes.rate, hop / axes.rate, "Time (s)"};
    return {centre, hop, "Time (samples)"};
}

Scale rowScale(const Axes& axes) {
    if (axes.rowStep > 0) return {axes.rowFirst, axes.rowStep, axes.rowLabel};
    if (!axes.lags) return {1, 1, "Row"};
    if (axes.rate > 0) return {0, 1000 / axes.rate, "Lag (ms)"};
    return {0, 1, "Lag (samples)"};
}

/// Finite numbers below the colour limits; blank (not-a-number) otherwise.
double finiteOrBlank(double value) {
    return std::isfinite(value) ? value : std::numeric_limits<double>::quiet_NaN();
}

/// The magnitude that all but the greatest hundredth of the finite elements stay within; 1 if that is 0.
double colourLimit(const std::vector<double>& values) {
    std::vector<double> magnitudes;
    for (const double value : values)
        if (std::isfinite(value)) magnitudes.push_back(std::abs(value));
    if (magnitudes.empty()) return 1;
    const auto limit = magnitudes.begin() + static_cast<std::ptrdiff_t>(magnitudes.size() * 99 / 100);
    std::nth_element(magnitudes.begin(), limit, magnitudes.end());
    return *limit > 0 ? *limit : 1;
}

constexpr const char* beginColour = "#2ca02c";
constexpr const char* endColour = "#d62728";

/// An upright line through the graph.
void drawUpright(Gnuplot& plot, double x, const char* colour) {
    plot.line("set arrow from first %.17g, graph 0 to first %.17g, graph 1 nohead front lw 1.5 lc rgb '%s'",
              x, x, colour);
}

/// A curve as positions and values by turns: of each bucket at most two points, least and greatest; all of
/// them where they are few.
template <typename Position, typename Value>
std::vector<double> thinned(size_t count, Position position, Value value) {
    const size_t bucket = std::max<size_t>(1, count / mostBuckets);
    std::vector<double> points;
    for (size_t start = 0; start < count; start += bucket) {
        size_t least = start;
        size_t greatest = start;
        for (size_t i = start; i < std::min(count, start + bucket); ++i) {
            if (std::isnan(value(least)) || value(i) < value(least)) least = i;
            if (std::isnan(value(greatest)) || value(i) > value(greatest)) greatest = i;
        }
        const size_t first = std::min(least, greatest);
        const size_t second = std::max(least, greatest);
        points.insert(points.end(), {position(first), value(first)});
        if (second > first) points.insert(points.end(), {position(second), value(second)});
    }
    return points;
}

std::vector<double> thinned(const std::vector<double>& points) {
    return thinned(
        points.size() / 2, [&](size_t i) { return points[2 * i]; },
        [&](size_t i) { return points[2 * i + 1]; });
}

void drawWave(Gnuplot& plot, const mxArray& wave, double rate) {
    const size_t count = wave.data.size();
    const double unit = rate > 0 ? rate : 1;
    const std::vector<double> points = thinned(
        count, [=](size_t i) { return static_cast<double>(i) / unit; },
        [&](size_t i) { return finiteOrBlank(wave.data[i]); });
    double peak = 0;
    for (size_t i = 1; i < points.size(); i += 2) peak = std::fmax(peak, std::abs(points[i]));
    plot.line("set xrange [0:%.17g]", static_cast<double>(count) / unit);
    plot.line("set yrange [%.17g:%.17g]", -1.05 * (peak > 0 ? peak : 1), 1.05 * (peak > 0 ? peak : 1));
    plot.line("set ylabel 'Amplitude'");
    plot.line("plot '-' binary record=(%zu) format='%%double%%double' using 1:2 with lines lc rgb '#2c5f8a' "
              "lw 1 notitle",
              points.size() / 2);
    plot.data(points);
}

const char* timeLabel(double rate) {
    return rate > 0 ? "Time (s)" : "Time (samples)";
}

/// Magnitudes in dB, those that are 80 below the loudest and less as that.
void toDecibels(std::vector<double>& magnitudes) {
    double loudest = std::numeric_limits<double>::lowest();
    for (double& value : magnitudes) {
        value = 20 * std::log10(std::max(value, std::numeric_limits<double>::min()));
        loudest = std::max(loudest, value);
    }
    for (double& value : magnitudes) value = std::max(value, loudest - 80);
}

/// What stands out from the palette.
const char* overColour(bool bothSigns, bool decibels) {
    if (bothSigns) return "#000000";
    return decibels ? "#ff3030" : "#ffffff";
}

void drawImage(Gnuplot& plot, const mxArray& output, const Scale& x, const Scale& y, const Axes& axes) {
    const size_t columns = std::min(output.columns, mostColumns);
    const size_t rows = std::min(output.rows, mostRows);
    std::vector<double> pixels;
    bool bothSigns = false;
    for (size_t row = 0; row < rows; ++row)
        for (size_t column = 0; column < columns; ++column) {
            const size_t from = column * output.columns / columns * output.rows + row * output.rows / rows;
            pixels.push_back(finiteOrBlank(output.data[from]));
            bothSigns = bothSigns || pixels.back() < 0;
        }
    if (axes.decibels) toDecibels(pixels);
    const double limit = colourLimit(pixels);
    const double dx = x.step * static_cast<double>(output.columns) / static_cast<double>(columns);
    const double dy = y.step * static_cast<double>(output.rows) / static_cast<double>(rows);
    const std::vector<double> over = thinned(axes.over);
    plot.line("%s", bothSigns ? signedPalette : palette);
    if (axes.decibels)
        plot.line("set autoscale cb");
    else
        plot.line("set cbrange [%.17g:%.17g]", bothSigns ? -limit : 0, limit);
    plot.line("set cblabel %s", Gnuplot::quoted(axes.label).c_str());
    plot.line("set colorbox user origin graph 1.02,0 size graph 0.017,1 noinvert");
    plot.line("set yrange [%.17g:%.17g]", y.at(-0.5), y.at(static_cast<double>(output.rows) - 0.5));
    plot.line("set ylabel '%s'", y.label.c_str());
    plot.line("plot '-' binary array=(%zu,%zu) origin=(%.17g,%.17g) dx=%.17g dy=%.17g format='%%double' "
              "with image notitle%s",
              columns, rows, x.at(-0.5) + dx / 2, y.at(-0.5) + dy / 2, dx, dy, over.empty() ? "" : ", \\");
    if (!over.empty())
        plot.line("'-' binary record=(%zu) format='%%double%%double' using 1:2 with points pt 7 ps 0.4 "
                  "lc rgb '%s' notitle",
                  over.size() / 2, overColour(bothSigns, axes.decibels));
    plot.data(pixels);
    plot.data(over);
}

void drawLine(Gnuplot& plot, mxArray output, const Scale& along, const Axes& axes) {
    if (axes.gaps) std::replace(output.data.begin(), output.data.end(), 0.0, std::nan(""));
    std::vector<double> points;
    std::vector<double> finite;
    for (size_t i = 0; i < output.data.size(); ++i) {
        points.insert(points.end(), {along.at(static_cast<double>(i)), finiteOrBlank(output.data[i])});
        if (std::isfinite(output.data[i])) finite.push_back(output.data[i]);
    }
    for (size_t i = 1; i < axes.over.size(); i += 2)
        if (std::isfinite(axes.over[i])) finite.push_back(axes.over[i]);
    for (const double level : axes.levels) {
        if (!std::isfinite(level)) continue;
        finite.push_back(level);
        plot.line(
            "set arrow from graph 0, first %.17g to graph 1, first %.17g nohead dt 2 lw 1.5 lc rgb '%s'",
            level, level, endColour);
    }
    if (finite.empty()) finite.push_back(0);
    const auto [least, greatest] = std::minmax_element(finite.begin(), finite.end());
    const double margin = *least < *greatest ? 0.05 * *greatest - 0.05 * *least : 1 + 0.05 * std::abs(*least);
    plot.line("set yrange [%.17g:%.17g]", *least - margin, *greatest + margin);
    plot.line("set ylabel %s", Gnuplot::quoted(axes.label).c_str());
    points = thinned(points);
    const std::vector<double> over = thinned(axes.over);
    plot.line("plot '-' binary record=(%zu) format='%%double%%double' using 1:2 with linespoints pt 7 ps 0.3 "
              "lc rgb '#2c5f8a' notitle%s",
              points.size() / 2, over.empty() ? "" : ", \\");
    if (!over.empty())
        plot.line("'-' binary record=(%zu) format='%%double%%double' using 1:2 with lines lw 1.5 lc rgb '%s' "
                  "notitle",
                  over.size() / 2, endColour);
    plot.data(points);
    plot.data(over);
}

void drawNothing(Gnuplot& plot, const mxArray& output) {
    plot.line("set label '%zu x %zu: empty' at graph 0.5,0.5 center", output.rows, output.columns);
    plot.line("unset ylabel; unset ytics; set yrange [0:1]; plot -1 notitle");
}

/// The time axis of a panel: its own, or that of the waveform, with numbers or with ticks only.
enum class TimeAxis { own, shared, ticks };

void setTimeAxis(Gnuplot& plot, TimeAxis axis, const std::string& label) {
    if (axis == TimeAxis::ticks)
        plot.line("set format x ''; unset xlabel");
    else
        plot.line("unset format; set xlabel '%s'", label.c_str());
}

void drawMatrix(Gnuplot& plot, const Panel& panel, TimeAxis axis) {
    const mxArray& output = panel.output;
    const Scale x = columnScale(panel.axes);
    const Scale y = rowScale(panel.axes);
    const bool column = output.columns == 1;
    const bool downRows = column && output.rows > 1;
    const Scale& across = downRows ? y : x;
    const double length = static_cast<double>(std::max<size_t>(1, column ? output.rows : output.columns));
    if (axis == TimeAxis::own || downRows)
        plot.line("set xrange [%.17g:%.17g]", across.at(-0.5), across.at(length - 0.5));
    if (panel.axes.cut >= 0) drawUpright(plot, panel.axes.cut, "#ffffff");
    setTimeAxis(plot, axis, across.label);
    if (output.data.empty())
        drawNothing(plot, output);
    else if (output.rows == 1 || column)
        drawLine(plot, output, across, panel.axes);
    else
        drawImage(plot, output, x, y, panel.axes);
}

void drawPanel(Gnuplot& plot, const Panel& panel, TimeAxis axis) {
    if (!panel.axes.sound || panel.output.data.empty()) return drawMatrix(plot, panel, axis);
    setTimeAxis(plot, axis, timeLabel(panel.axes.rate));
    drawWave(plot, panel.output, panel.axes.rate);
}

bool hasTimes(const Axes& axes) {
    return axes.frames || ((axes.timeStep > 0 || axes.sound) && axes.rate > 0);
}

void setMargins(Gnuplot& plot, double top, double bottom) {
    plot.line("set tmargin at screen %g; set bmargin at screen %g", top, bottom);
}

/// The waveform in the upper part; its time axis has numbers where what follows has another.
void drawAbove(Gnuplot& plot, const Above& above, bool sharedTimeAxis) {
    setMargins(plot, 0.93, 0.69);
    setTimeAxis(plot, sharedTimeAxis ? TimeAxis::ticks : TimeAxis::own, timeLabel(above.rate));
    for (size_t i = 0; i < above.marks.size(); ++i)
        drawUpright(plot, above.marks[i], i % 2 == 0 ? beginColour : endColour);
    drawWave(plot, *above.samples, above.rate);
    plot.line("unset arrow");
}

/// The panels below it, each as high as the others.
void drawPanels(Gnuplot& plot, const std::vector<Panel>& panels, bool below, bool sharedTimeAxis) {
    constexpr double bottom = 0.085;
    const double gap = sharedTimeAxis ? 0.04 : 0.11;
    const double top = below ? 0.69 - gap : 0.93;
    const double height = (top + gap - bottom) / static_cast<double>(panels.size());
    for (size_t i = 0; i < panels.size(); ++i) {
        const double upper = top - height * static_cast<double>(i);
        const TimeAxis shared = i + 1 < panels.size() ? TimeAxis::ticks : TimeAxis::shared;
        setMargins(plot, upper, upper - height + gap);
        drawPanel(plot, panels[i], sharedTimeAxis ? shared : TimeAxis::own);
        plot.line("unset arrow; unset label");
    }
}

/// A picture that could not be written to its end, on a full disk for example, lacks the last chunk of a PNG;
/// gnuplot itself does not tell.
void requireWhole(const std::string& path) {
    constexpr int chunkSize = 12;
    if (!std::filesystem::is_regular_file(path)) return;
    std::ifstream file(path, std::ios::binary);
    std::string end(chunkSize, ' ');
    file.seekg(-chunkSize, std::ios::end);
    if (!file.read(end.data(), chunkSize) || end.substr(4, 4) != "IEND")
        throw std::runtime_error("the picture is not whole: is the disk full?");
}

} // namespace

void drawPicture(const std::string& path, const std::string& title, const Above& above,
                 const std::vector<Panel>& panels) {
    Gnuplot plot;
    plot.line("set encoding utf8");
    plot.line("set terminal pngcairo size 1200,800 noenhanced font 'Sans,11'");
    plot.output(path);
    plot.line("set multiplot title %s font 'Sans:Bold,13'", Gnuplot::quoted(title).c_str());
    plot.line("set lmargin at screen 0.09; set rmargin at screen 0.9");
    plot.line("set border lw 0.8; set tics out nomirror");
    const bool drawsWave = above.samples && !above.samples->data.empty();
    const bool sharedTimeAxis =
        drawsWave &&
        std::all_of(panels.begin(), panels.end(), [](const Panel& panel) { return hasTimes(panel.axes); });
    if (drawsWave) drawAbove(plot, above, sharedTimeAxis);
    drawPanels(plot, panels, drawsWave, sharedTimeAxis);
    plot.line("unset multiplot");
    plot.finish();
    requireWhole(path);
}
