// The lags that each frame's period may be.
#pragma once

#include "audio/voice/character.hpp"

namespace wavepitch::voice {

/// The local maxima of each frame's normalised correlation around its instant, at most voiceCandidateMax.
/// Of more, the strongest stay, with a little less for long lags, as multiples of a period are as strong.
/// Lag and height are those of the parabola through a maximum and its neighbours.
///
/// Sources: Y. Medan, E. Yair, D. Chazan, "Super resolution pitch determination of speech signals", IEEE
/// Transactions on Signal Processing 39(1), 1991, for windows around the instant; P. McLeod, G. Wyvill, "A
/// smarter way to find pitch", ICMC 2005, for the mean of both windows' energies as the norm, which is low
/// where a voice begins; D. Talkin, "A robust algorithm for pitch tracking (RAPT)", in Speech Coding and
/// Synthesis, Elsevier, 1995, for the constant that is added to it.
///
/// @param correlation  receives the correlation, lagNum values for each frame. May be null.
/// @return             one for each frame.
std::vector<VOICECANDIDATES> findCandidates(Band& band, const Layout& layout, const Character& character,
                                            const VOICEPARAM& param, float* correlation);

} // namespace wavepitch::voice
