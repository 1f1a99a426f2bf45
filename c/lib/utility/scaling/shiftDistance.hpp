// Shift distance: the shorter of two sequences slides along the longer one, and at each position the offset
// between them is taken out before they are compared.
#pragma once

/// The position and the offset at which the shorter sequence lies closest to a stretch of the longer one.
///
/// @param vec1          len1 values. It slides along vec2 unless it is the longer one.
/// @param vec2          len2 values.
/// @param distanceType  1: the distance is the sum of absolute differences and the offset the median of the
///                      differences shorter - longer; 2: the sum of squares and the mean. Any other value
///                      leaves by fatal path A with "Unknown distance type (line %d of %s)", unless a
///                      sequence is empty.
/// @param shift         receives the offset: what to subtract from the shorter sequence to bring it onto the
///                      longer one; noMatchDistance (2147483647.0) if a length is below 1, unchanged if no
///                      distance is below that.
/// @param bestPosition  receives the position in the longer sequence, from 0, the first one of equals; -1 if
///                      a length is below 1 or no distance is below 2147483647.0.
/// @return              the smallest distance, not divided by the length; 2147483647.0 if there is no best
///                      position.
double lrShiftDist(const double* vec1, int len1, const double* vec2, int len2, int distanceType,
                   double& shift, int& bestPosition);
