// Clarity: how clearly periodic a frame is, from 0 to 1.
#pragma once

#include "audio/pitchTracking/param.hpp"

#include <type_traits>

/// The clarity of one frame, and the pitch that the extremum of its pitch function alone would give it.
///
/// The search starts where the function first turns at minIndex or above (at minIndex if it never does) and
/// goes up to maxIndex. For the ACF the period is the lag of the highest value, and clarity that value, at
/// least 0, by the value at lag 0; above 1 it counts as 0. For the AMDF the period is the lag of the lowest
/// value, and clarity 1 minus that value by the highest one; it is not clipped. Of equal values the lowest
/// lag counts, and a divisor of 0 makes a clarity of 0.
///
/// @param pf       pfLen values by lag.
/// @param ptParam  read: pfType, fs, minIndex, maxIndex. Lags outside 0 to pfLen - 1 are not searched.
/// @param clarity  receives the clarity, in fixed point (fixedPoint.hpp) for an integer type; may be null.
/// @return         the pitch in semitones, in single precision, in fixed point for an integer type; 0 where
///                 no lag is searched (then clarity is 0) or the period's frequency is not above 0.
/// A type that is neither PF_AMDF nor PF_ACF is fatal path A with "Unknown ptParam.pfType=%d (line %d of file
/// %s)".
///
/// Instances: double, int.
template <typename T>
T pf2pitchClarity(const T* pf, int pfLen, const PTPARAM& ptParam, std::type_identity_t<T>* clarity);
