// Real speech to measure on.
#pragma once

#include <string>
#include <vector>

/// A minute or more of 16-bit samples: the recording of that name in examples/ (16-bit mono WAV with a header
/// of 44 bytes), over and over.
///
/// @param seconds  length in seconds at the recording's rate.
std::vector<int> speech(const std::string& name, int seconds = 60);
