// What the detectors look at: a curve with a value for each whole frame, and the threshold on it. The
// detectors use them, and so does who draws what a detector has seen.
#pragma once

#include "audio/endPoint/epdParam.hpp"

#include <cstdint>
#include <vector>

namespace endPointCurve {

/// Of epdByVol: volumes.
std::vector<int> volume(const int* wave, int waveLen, const EPDPARAM& epdParam);

/// Of epdByVolHod: (volume + ASHOD) / 2, truncated.
std::vector<int> volumeAndAshod(const int* wave, int waveLen, const EPDPARAM& epdParam);

/// Of both, for a curve with at least one value: inside its range without about the 32nd part at either end.
int threshold(std::vector<int> curve, int ratio);

struct Thresholds {
    int low;
    int high;
};

/// Of epdByVol2, from its smallest and its largest volume: high is 20 times the smallest, but not above a
/// quarter of the largest, and where that is below a 128th of the largest, about a 64th of it. Low is half of
/// high.
Thresholds twoThresholds(std::int64_t minVol, std::int64_t maxVol);

/// Of charEndPointDetect, in frames of 256 samples with an overlap of 86: energies in decibels, -2147483647
/// of a frame of zeros.
///
/// @param wave  without its mean.
std::vector<double> decibels(const double* wave, int waveLen);

} // namespace endPointCurve
