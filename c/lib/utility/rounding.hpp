// Rounding and rounding integer division, defined for every argument.
#pragma once

#include <cstdint>

/// Nearest integer, halves away from zero: 2.5 gives 3, -2.5 gives -3. The half is added in double, for a
/// float too: 0.49999997F gives 0.
///
/// @return  the rounded value; not-a-number gives 0, values beyond the range of int give its nearest end.
int myRound(float x);
int myRound(double x);

/// Integer quotient rounded to nearest, halves away from zero, for b > 0: half = b / 2, then (a + half) / b
/// for a > 0 and (a - half) / b otherwise, all truncating. A negative divisor follows the same formula
/// (intDiv(7, -2) = -3).
///
/// @return  the quotient; 0 for b = 0; the nearest end of the range of int where the quotient leaves it.
int intDiv(int a, int b);

namespace wavepitch::utility {

/// Truncation toward zero; not-a-number gives 0, values beyond the range of int give its nearest end.
int truncateToInt(double x);

/// The value itself, or the nearest end of the range of int where it leaves it.
int clampToInt(std::int64_t value);

} // namespace wavepitch::utility

using wavepitch::utility::clampToInt;
using wavepitch::utility::truncateToInt;
