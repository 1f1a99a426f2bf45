// The picture of a call.
#pragma once

#include "analysis.hpp"

#include <string>

namespace shell {

/// Draws what a function draws in the package, below the recording: segments on it, above the curve that they
/// are found by with its thresholds; a frequency over the spectrogram; a spectrogram in dB; else the output
/// itself, a matrix as an image, all others as a curve. Failure is a std::runtime_error.
void draw(const Request& request, const Analysis& analysis, const std::string& title,
          const std::string& path);

} // namespace shell
