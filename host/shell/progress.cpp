#include "progress.hpp"

#include <cctype>
#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace shell {

namespace {

/// A running pv, which draws a bar for the lines that it is sent; null where it is missing or nobody looks.
std::FILE* openBar(size_t total) {
    if (total < 2 || isatty(STDERR_FILENO) == 0 || std::system("command -v pv >/dev/null") != 0)
        return nullptr;
    std::signal(SIGPIPE, SIG_IGN); // a bar that has gone stops nothing
    return popen(("exec pv -l -p -t -e -i 0.2 -s " + std::to_string(total) + " >/dev/null").c_str(), "w");
}

} // namespace

Progress::Progress(size_t total) : bar(openBar(total), pclose) {}

void Progress::advance() {
    if (!bar) return;
    std::fputc('\n', bar.get());
    std::fflush(bar.get());
}

void Progress::say(const std::string& line) const {
    std::fprintf(stderr, "%s%s\n", bar ? "\r\033[K" : "", line.c_str());
}

std::string inOneLine(const std::string& text) {
    std::string result;
    for (const char c : text) {
        char escaped[8] = {c};
        if (c == '\n')
            std::snprintf(escaped, sizeof escaped, "\\n");
        else if (c == '\t')
            std::snprintf(escaped, sizeof escaped, "\\t");
        else if (std::iscntrl(static_cast<unsigned char>(c)) != 0)
            std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned>(c) & 0xffU);
        result += escaped;
    }
    return result;
}

} // namespace shell
