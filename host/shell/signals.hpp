// Signals as a program waits for them that has processes to end and files to remove.
#pragma once

#include <csignal>
#include <functional>

namespace shell {

/// The signals that end a program, and the end of a child. While it exists they wait to be asked for; of
/// SIGHUP it takes no notice where that is ignored, as nohup has it.
class Signals {
public:
    Signals();
    ~Signals() { restore(); }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    /// They do again what they did before: for a child, and at the end.
    void restore() const;
    /// Waits for one. SIGCHLD may stand for nothing at all.
    int next() const;
    /// Does what may have to wait for others while those that end a program end this one at once.
    void letThrough(const std::function<void()>& work) const;

private:
    sigset_t set{};
    sigset_t before{};
};

} // namespace shell
