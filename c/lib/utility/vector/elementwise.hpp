// Conversions between vectors of integers and of doubles.
#pragma once

/// Rounds each value to the nearest integer, halves away from zero (myRound: not-a-number gives 0, values
/// beyond the range of int give its nearest end).
///
/// @param in   n values; nothing happens for n below 1.
/// @param out  receives n values.
void double2intVec(const double* in, int n, int* out);

/// Converts each value, exactly. The parameters are those of double2intVec.
void int2doubleVec(const int* in, int n, double* out);
