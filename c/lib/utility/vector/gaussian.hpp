// The normal distribution.
#pragma once

/// The natural logarithm of the normal density at x: (-ln(2 pi) - (x - mean)^2 / variance - ln(variance))
/// / 2.
///
/// @param variance  above 0; other values give infinities or not-a-number, as the formula has it.
double gaussianLog(double x, double mean, double variance);
