// What the text of a kernel is being compiled for. The build defines WAVEPITCH_INSTRUCTION_SET, the set's
// number in InstructionSet, and WAVEPITCH_VECTOR_BYTES, and gives the flags.
//
// Everything else in such a text is local to it: an inline function shared with other files might be kept by
// the linker in a version that the processor does not have.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>

namespace {

constexpr auto ownSet = static_cast<wavepitch::InstructionSet>(WAVEPITCH_INSTRUCTION_SET);
constexpr std::size_t ownBytes = WAVEPITCH_VECTOR_BYTES; // of a register

} // namespace
