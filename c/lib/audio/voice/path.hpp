// The path: for each frame a candidate or none.
#pragma once

#include "audio/voice/candidates.hpp"

#include <cstdint>

namespace wavepitch::voice {

/// The place of an unvoiced frame's candidate.
inline constexpr std::uint8_t unvoiced = 255;

/// The best path, as path.cpp describes it.
///
/// @return  for each frame the place of its candidate, or unvoiced.
std::vector<std::uint8_t> bestPath(const std::vector<VOICECANDIDATES>& frames, const Layout& layout,
                                   const Character& character, const VOICEPARAM& param);

} // namespace wavepitch::voice
