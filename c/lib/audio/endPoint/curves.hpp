// For who draws what a detector has seen: a curve with a value for each whole frame, and the thresholds on
// it. The frames are those of the detector (detectors.hpp).
#pragma once

#include "audio/endPoint/detectors.hpp"

#include <vector>

namespace wavepitch::endPoint {

struct Curve {
    std::vector<double> values; ///< one for each whole frame
    /// One, or the low and the high one; none without a frame to take them from.
    std::vector<double> thresholds;
};

/// Of epdByVol: volumes.
Curve volumeCurve(const int* wave, int waveLen, const EPDPARAM& epdParam);

/// Of epdByVolHod: (volume + ASHOD) / 2, truncated.
Curve volumeAndAshodCurve(const int* wave, int waveLen, const EPDPARAM& epdParam);

/// Of epdByVol2: volumes.
Curve twoThresholdCurve(const int* wave, int waveLen);

/// Of epdByVolZcr: volumes.
Curve volumeAndZcrCurve(const int* wave, int waveLen);

/// Of charEndPointDetect and sentenceEndPointDetect: energies in decibels, -2147483647 of a frame of zeros.
///
/// @param wave  as the detector leaves it: without its mean.
Curve characterCurve(const double* wave, int waveLen);

/// Of endPointDetect4quokka: sums of the absolute deviations from each frame's mean, 0 for frames at the
/// front that do not count.
///
/// @param wave  as the detector leaves it: rescaled.
Curve handsetCurve(const double* wave, int waveLen, int fs);

} // namespace wavepitch::endPoint
