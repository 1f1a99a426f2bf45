// What callers do to a pitch vector after tracking: one pitch in semitones per frame, 0 for a frame without
// pitch. Nothing here turns a 0 into something else, and not-a-number counts as a pitch.
#pragma once

#include <vector>

class cAudioPitchPostProcess {
public:
    /// Sets pitches strictly below minPitch or strictly above maxPitch to 0.
    ///
    /// @param pitch  n values, changed in place.
    static void limitPitch(double* pitch, int n, float minPitch, float maxPitch);

    /// The stretch between the leading and the trailing zeros.
    ///
    /// @param pitch  n values.
    /// @param first  receives the index of the first value that is not 0; n where all are 0.
    /// @param last   receives the index of the last value that is not 0; n - 1 where all are 0.
    static void trimPitch(const double* pitch, int n, int& first, int& last);

    /// The value of a sampled curve at t: that of the first abscissa before it, that of the last at or behind
    /// it, and in between linear interpolation, but not across a gap: where one of the two neighbours has the
    /// value 0, the nearer one's value, on a tie the right-hand one's.
    ///
    /// @param x  n abscissae, ascending. Between equal ones, the right-hand value counts.
    /// @param n  below 1, the result is 0.
    /// @param y  n values.
    static double interp4pitchPeriod(const double* x, int n, const double* y, double t);

    /// The integer form of a pitch vector: pitches below 34 or above 80 are dropped, zeros at both ends cut.
    ///
    /// @param pv      the pitch vector.
    /// @param out     receives an array, also for no value, that the caller releases with free: 10 times the
    ///                pitch truncated to whole semitones, 0 for not-a-number.
    /// @param outLen  receives its length.
    /// @return        true.
    static bool bModifyPV(const std::vector<double>& pv, int*& out, int& outLen);
};

namespace wavepitch::pitchTracking {

/// The integer form of a pitch vector that has been limited: see bModifyPV, which limits it first.
int* trimmedTenths(const double* pitch, int n, int& outLen);

} // namespace wavepitch::pitchTracking
