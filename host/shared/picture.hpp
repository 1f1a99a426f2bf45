// The picture of a call: the waveform that went in above what came out.
#pragma once

#include <string>
#include <vector>

#include "standIn.hpp"

/// What the axes of a picture mean.
struct Axes {
    double rate = 0;       // Hz; times in seconds and lags in milliseconds, or in samples where it is 0
    bool frames = false;   // columns are frames, each drawn around its centre, on the waveform's time axis
    double frameSize = 0;  // samples of a frame
    double overlap = 0;    // samples that consecutive frames share
    double firstTime = 0;  // seconds of the first column's centre, and from column to column, where timeStep
    double timeStep = 0;   // is above 0: instead of what frames say
    bool gaps = false;     // a curve is interrupted where it is 0
    bool sound = false;    // a row or column is a waveform at the rate
    bool lags = false;     // rows are lags, in samples from 0
    double rowFirst = 0;   // what the first row is, and from row to row, where rowStep is above 0: instead of
    double rowStep = 0;    // what lags say
    std::string rowLabel;  // what rows are, then
    bool decibels = false; // magnitudes are drawn in dB, the loudest 80 of them
    std::string label = "Value";  // what the values are
    std::vector<double> levels{}; // values that a curve is compared with
    std::vector<double> over{};   // points over an image or a curve: seconds and value, by turns
    double cut = -1;              // seconds of a line through the output; none below 0
};

/// The waveform that stands above; none without samples.
struct Above {
    const mxArray* samples = nullptr; // drawn as one vector, column after column
    double rate = 0;                  // Hz; times in samples where it is 0
    std::vector<double> marks{};      // seconds where segments begin and end, by turns
};

/// What stands below, with its axes.
struct Panel {
    mxArray output;
    Axes axes;
};

/// Draws a PNG picture of 1200 x 800 pixels with gnuplot, the panels one below the other. A matrix is drawn
/// as an image, a single row or column as a line; elements that are not finite stay blank. Colours are spread
/// over all but the greatest hundredth of the magnitudes, with zero in the middle where both signs occur.
///
/// Failure, a file that has not become whole included, is a std::runtime_error.
void drawPicture(const std::string& path, const std::string& title, const Above& above,
                 const std::vector<Panel>& panels);
