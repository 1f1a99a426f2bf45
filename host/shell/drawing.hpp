// The picture of a call.
#pragma once

#include "analysis.hpp"

#include <string>

namespace shell {

/// How many outputs the module is asked for, so that one of them can be shown and drawn.
int countToDraw(const Function& function, int output);

/// Draws what a function draws in the package, below the recording: segments on it, above the curve that they
/// are found by with its thresholds; the fundamental frequency over the spectrogram; a tracked pitch, and its
/// lags over the pitch function; a spectrogram in dB; a query over its closest match, and the distances of
/// all; else the output itself, a matrix as an image, sound as a waveform, all others as a curve. Failure is
/// a std::runtime_error.
void draw(const Request& request, const Analysis& analysis, const std::string& title,
          const std::string& path);

} // namespace shell
