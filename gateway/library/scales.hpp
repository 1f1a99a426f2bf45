// The versions of a query as name-value pairs.
#pragma once

#include "command.hpp"

struct Scales {
    double lowerRatio;
    double upperRatio;
    int resolution;
    int distanceType;
};

/// The options lowerRatio, upperRatio, resolution (so many where it is not given, and at most) and
/// distanceType.
Scales readScales(const Call& call, const Options& options, int usualScales, int mostScales);
