// Pitch-point candidates: the lags at which a frame's pitch function says that its period may be. The path
// search (path.hpp) chooses among them.
#pragma once

#include "audio/pitchTracking/param.hpp"

/// One candidate of a frame.
struct PPC {
    int index;        ///< its lag, the pitch period in samples
    double pfValue;   ///< the frame's pitch function there
    int prevIndex;    ///< position of its best predecessor among the candidates of the frame before; -1 in
                      ///< the first frame of a run; set by the path search
    double totalDist; ///< score of the best path that ends here; set by the path search
};

/// The candidates of one frame.
struct STRUCT_A {
    int ppcLen;    ///< number of candidates
    int bestIndex; ///< the lag that the path search has chosen; -1 before, and in frames of no run
    PPC* ppc;      ///< ppcLen candidates by increasing lag; owned by whoever has made the array
};

/// Picks the candidates of one frame: local minima (AMDF) or maxima (ACF) of the pitch function, or all of
/// its lags where dpUseLocalOptim is not 1, as far as they lie between the lags of maxPitch and minPitch,
/// both included. A flat extremum counts in its middle, the later one of two. Lag 0 is never a candidate, nor
/// is one at which the function has not turned back before its end. Comparisons are strict: not-a-number
/// makes neither slope nor extremum.
///
/// @param pf        pfLen values by lag.
/// @param ptParam   read: dpUseLocalOptim, pfType, fs, minPitch, maxPitch. ppcNum does not cap the number.
/// @param ppcIndex  receives the lags of the candidates; working space in between, so room for pfLen ints.
/// @return          the number of candidates.
/// With dpUseLocalOptim 1, a type that is neither PF_AMDF nor PF_ACF is fatal path A with "Unknown
/// ptParam.pfType=%d (line %d of file %s)".
///
/// The instance: double.
template <typename T>
int pf2ppc(const T* pf, int pfLen, const PTPARAM& ptParam, int* ppcIndex);

class cAudioPitchCandidates {
public:
    /// Prints the candidates of frameNum frames on the host console, values truncated to integers:
    /// "A[%d].ppcLen=%d\n" for each frame, "\tppc[%d]: pfValue=%d, totalDist=%d\n" for each candidate.
    static void printA(const STRUCT_A* A, int frameNum);
};
