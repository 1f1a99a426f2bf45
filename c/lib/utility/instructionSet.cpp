// In a file of its own, so that a program can bring another choice: tests and measurements do.
#include "utility/instructionSet.hpp"

wavepitch::InstructionSet wavepitch::instructionSet() {
    return widestInstructionSet();
}
