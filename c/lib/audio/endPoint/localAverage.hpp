// Smoothing of a vector of frame values.
#pragma once

class cAudioLocalAverage {
public:
    /// Replaces each value but the first and the last by a quarter of the one before, half of itself and a
    /// quarter of the one after, all as they were before the call, and each of the three rounded to nearest
    /// with halves away from zero (intDiv): 4, 8, 4 becomes 4, 6, 4. A sum beyond the range of int is its
    /// nearest end.
    ///
    /// @param x  n values; fewer than 3 stay as they are.
    static void localAverage(int* x, int n);
};
