// Long work asks its host from time to time whether the user wants it to end.
//
// A host that can tell hands in a check; without one nothing is asked. Operations ask about every ten
// milliseconds, in stretches of work that belong together, and at the latest within a second.
#pragma once

#include <cstddef>

namespace wavepitch::utility {

/// Returns where the work shall go on. Else it throws, whatever the host likes: the exception passes through
/// the operation, which releases all that it took, and comes out of it; results are then unfinished.
using InterruptionCheck = void (*)();

/// While it lives, the operations that this thread calls ask a check; behind it, what they asked before.
class Interruptible {
public:
    explicit Interruptible(InterruptionCheck check);
    ~Interruptible();
    Interruptible(const Interruptible&) = delete;
    Interruptible& operator=(const Interruptible&) = delete;

private:
    InterruptionCheck outer;
};

/// Asks the check of the calling thread, if it has one. Takes a few nanoseconds.
void askForInterruption();

/// Work whose pieces are too short to ask at each of them.
class LongWork {
public:
    /// So many steps of about a nanosecond were taken.
    void took(std::size_t steps) {
        sinceAsked += steps;
        if (sinceAsked < askedAfter) return;
        sinceAsked = 0;
        askForInterruption();
    }

private:
    static constexpr std::size_t askedAfter = 10'000'000;
    std::size_t sinceAsked = 0;
};

} // namespace wavepitch::utility
