// Constants that results are fixed to: written to the digits given here, not to those of the type.
#pragma once

inline constexpr double twoPi = 6.28318530717958;
inline constexpr double lnTwo = 0.69314718055995;
