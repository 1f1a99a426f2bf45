// A running gnuplot that takes its script through a pipe.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

class Gnuplot {
public:
    /// Starts gnuplot (Debian package gnuplot-nox).
    Gnuplot();

    /// One line of the script, formatted as printf does.
    [[gnu::format(printf, 2, 3)]] void line(const char* format, ...);

    /// The numbers of a plot '-' binary, which come right after its line, as %double.
    void data(const std::vector<double>& values);

    /// The file that the picture goes to, made at once where there is none; a std::runtime_error if it cannot
    /// be opened. A pipe or a device is left to gnuplot.
    void output(const std::string& path);

    /// Ends the script and waits; a std::runtime_error if gnuplot is missing or reports failure.
    void finish();

    /// The text as a string of the script.
    static std::string quoted(const std::string& text);

private:
    struct Closer {
        void operator()(std::FILE* stream) const { pclose(stream); }
    };
    std::unique_ptr<std::FILE, Closer> pipe;
};
