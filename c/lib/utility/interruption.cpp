#include "utility/interruption.hpp"

#include <utility>

namespace wavepitch::utility {

namespace {

thread_local InterruptionCheck current = nullptr;

} // namespace

Interruptible::Interruptible(InterruptionCheck check) : outer(std::exchange(current, check)) {}

Interruptible::~Interruptible() {
    current = outer;
}

void askForInterruption() {
    if (current) current();
}

} // namespace wavepitch::utility
