// Linear scaling: a query is stretched or compressed uniformly in time by a grid of ratios, and each version
// is compared point by point with the beginning of a reference. It finds a hummed phrase at the front of a
// song, whatever its tempo (J.-S. R. Jang, H.-R. Lee, M.-Y. Kao, "Content-based Music Retrieval Using Linear
// Scaling and Branch-and-bound Tree Search", ICME 2001).
//
// Scale i of resolution scales has the ratio lowerRatio + i * (upperRatio - lowerRatio) / (resolution - 1)
// and the length ratio * queryLen; resolution 1 leaves the ratio lowerRatio alone. The query is resampled to
// that length as vecResample does. The scan goes up the scales and ends at the first one that is longer than
// the reference. Lengths beyond the range of int saturate; a scale with a length below 1 is passed over: it
// keeps the no-match distance. A resolution below 1 compares nothing and writes no distance, and an empty
// query (queryLen below 1) has no scale to compare either.
//
// distanceType: 1 the absolute difference, 2 the squared difference. A variant that shifts first subtracts
// from the scaled query the median (type 1) or the mean (type 2) of its differences from the reference, so
// that a transposed query matches with distance 0. The distance of a scale is the mean over its points.
#pragma once

/// The distance of scales that were not compared, and the sum of one that was abandoned.
inline constexpr double noMatchDistance = 2147483647.0;

namespace wavepitch::utility {

/// The ratio of scale i, formed from left to right: a step formed beforehand would round to other lengths.
inline double scaleRatio(double lowerRatio, double upperRatio, int resolution, int i) {
    if (resolution < 2) return lowerRatio;
    return lowerRatio + i * (upperRatio - lowerRatio) / (resolution - 1);
}

} // namespace wavepitch::utility

/// The scaled versions of one query, made once for many references. linearScaledVecCreate fills the record,
/// linearScaledVecFree releases its arrays; the record belongs to the caller.
struct SCALEDVECSET {
    double lowerRatio; ///< ratio of scale 0
    double upperRatio; ///< ratio of scale resolution - 1
    int resolution;    ///< number of scales
    int vecMaxLen;     ///< values from row to row of scaledVec: queryLen * upperRatio, truncated, at least 0
    double* scaledVec; ///< resolution rows; row i begins with scaledVecLen[i] values
    int* scaledVecLen; ///< resolution lengths, 0 to vecMaxLen
};

/// Makes the scaled versions of a query. Lengths are truncated; one that would exceed vecMaxLen, as rounding
/// of the ratios or a lowerRatio above upperRatio may have it, is vecMaxLen.
///
/// @param query       queryLen values; queryLen at least 1, else every length is 0.
/// @param lowerRatio  of the shortest version.
/// @param upperRatio  of the longest version.
/// @param resolution  number of scales; below 1 there are none.
/// @param set         receives the versions. What it held before is not released.
///
/// Fatal path A with "No memory for %d scales of %d values (line %d of %s)"; the set is then empty.
void linearScaledVecCreate(const double* query, int queryLen, double lowerRatio, double upperRatio,
                           int resolution, SCALEDVECSET* set);

/// Releases the arrays of a set and leaves it without scales; a second call does nothing.
void linearScaledVecFree(SCALEDVECSET* set);

/// Linear scaling without a shift. Lengths are truncated.
///
/// @param query         queryLen values.
/// @param reference     referenceLen values.
/// @param lowerRatio    of scale 0.
/// @param upperRatio    of scale resolution - 1.
/// @param resolution    number of scales.
/// @param distanceType  1 or 2; any other value prints "Unknown method!\n" on the host console and ends the
///                      process with status 1 when the first scale is compared.
/// @param distance      receives resolution distances, noMatchDistance for scales that were not compared.
/// @param scaled        work array of referenceLen values (or as many as the longest scale that is compared).
/// @param bestScale     receives the scale of the smallest distance, the first one of equals; 0 if none was
///                      compared.
/// @return              the smallest distance; noMatchDistance if no scale was compared.
double linearScaling(const double* query, int queryLen, const double* reference, int referenceLen,
                     double lowerRatio, double upperRatio, int resolution, int distanceType, double* distance,
                     double* scaled, int& bestScale);

/// Linear scaling with a shift. Lengths are rounded, halves away from zero. Parameters and result are those
/// above, with:
///
/// @param distanceType  1 or 2; any other value leaves by fatal path A with "Unknown distance type (line %d
///                      of %s)" when the first scale is compared.
/// @param shift         receives resolution shifts: what was subtracted from each scaled query. Untouched for
///                      scales that were not compared.
/// @param difference    second work array, as long as scaled; left holding anything.
/// @param cutoff        a scale is abandoned as soon as its mean distance is bound to exceed the cutoff; its
///                      distance is then noMatchDistance / length. Infinity or not-a-number never abandons.
double linearScaling(const double* query, int queryLen, const double* reference, int referenceLen,
                     double lowerRatio, double upperRatio, int resolution, int distanceType, double* distance,
                     double* shift, double* scaled, double* difference, int& bestScale, double cutoff);

/// Linear scaling with a shift and a set of versions made beforehand (whose lengths are truncated). The
/// shifts are subtracted in the set itself: a later call finds the same distances, but its shifts are
/// relative to what the earlier ones left.
///
/// @param unused  not looked at.
/// The other parameters and the result are those above.
double linearScaling2(SCALEDVECSET* set, const double* reference, int referenceLen, int distanceType,
                      double* distance, double* shift, double* unused, double* difference, int& bestScale,
                      double cutoff);
