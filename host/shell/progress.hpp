// How far a corpus is.
#pragma once

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace shell {

class Progress {
public:
    /// @param total  jobs; of a single one nothing is shown.
    explicit Progress(size_t total);

    /// Whether a bar shows it.
    bool isBar() const { return bar != nullptr; }
    /// One more job is through.
    void advance();
    /// A line on standard error, above the bar.
    void say(const std::string& line) const;
    /// Ends the bar.
    void finish() { bar.reset(); }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> bar;
};

/// A name or a message as it stands in one line: control characters become \n, \t or \xHH.
std::string inOneLine(const std::string& text);

} // namespace shell
