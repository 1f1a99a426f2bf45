// The Hamming window as the analyses share it.
#pragma once

#include <vector>

namespace wavepitch::spectrum {

/// Value i of the window of frameSize values.
double hammingValue(int i, int frameSize);

/// All of them.
std::vector<double> hammingWindow(int frameSize);

} // namespace wavepitch::spectrum
