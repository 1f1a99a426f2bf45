#include "signals.hpp"

#include <initializer_list>

namespace shell {

namespace {

bool isIgnored(int signal) {
    struct sigaction action {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

Signals::Signals() {
    std::signal(SIGCHLD, SIG_DFL); // whoever has called may ignore it: then no child's end would be told
    sigemptyset(&set);
    for (const int signal : {SIGINT, SIGTERM, SIGCHLD}) sigaddset(&set, signal);
    if (!isIgnored(SIGHUP)) sigaddset(&set, SIGHUP);
    sigprocmask(SIG_BLOCK, &set, &before);
}

void Signals::restore() const {
    sigprocmask(SIG_SETMASK, &before, nullptr);
}

void Signals::letThrough(const std::function<void()>& work) const {
    sigset_t others = before;
    sigaddset(&others, SIGCHLD); // would be lost
    sigprocmask(SIG_SETMASK, &others, nullptr);
    work();
    sigprocmask(SIG_BLOCK, &set, nullptr);
}

int Signals::next() const {
    const int signal = sigwaitinfo(&set, nullptr);
    return signal < 0 ? SIGCHLD : signal; // woken by one that is not waited for
}

} // namespace shell
