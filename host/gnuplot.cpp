#include "gnuplot.hpp"

#include "utility/classicLocale.hpp"

#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

Gnuplot::Gnuplot() {
    std::signal(SIGPIPE, SIG_IGN); // an early end of gnuplot is told by its status
    pipe.reset(popen("gnuplot", "w"));
    if (!pipe) throw std::runtime_error("gnuplot cannot be started");
}

void Gnuplot::line(const char* format, ...) {
    const wavepitch::utility::ClassicLocale locale; // gnuplot reads numbers with a point
    std::va_list args;
    va_start(args, format);
    std::vfprintf(pipe.get(), format, args);
    va_end(args);
    std::fputc('\n', pipe.get());
}

void Gnuplot::data(const std::vector<double>& values) {
    if (!values.empty()) std::fwrite(values.data(), sizeof(double), values.size(), pipe.get());
}

void Gnuplot::output(const std::string& path) {
    // What gnuplot cannot open it replaces by standard output. Ordinary files alone are asked: to open a pipe
    // once more would end it for its reader.
    std::error_code unknown;
    const bool isOther =
        std::filesystem::exists(path, unknown) && !std::filesystem::is_regular_file(path, unknown);
    if (!isOther && !std::ofstream(path, std::ios::app))
        throw std::runtime_error(std::string("the picture's file cannot be opened: ") + std::strerror(errno));
    line("set output %s", quoted(path).c_str());
}

void Gnuplot::finish() {
    if (pclose(pipe.release()) != 0)
        throw std::runtime_error(
            "the picture is not drawn: gnuplot (package gnuplot-nox) is missing or failed");
}

std::string Gnuplot::quoted(const std::string& text) {
    // Everything that could end the string, or that the script would expand inside it, by its octal code.
    std::string result = "\"";
    for (const char c : text) {
        char escaped[8] = {c};
        if (c == '"' || c == '\\' || c == '`' || std::iscntrl(static_cast<unsigned char>(c)))
            std::snprintf(escaped, sizeof escaped, "\\%03o", static_cast<unsigned>(c) & 0xffU);
        result += escaped;
    }
    return result + '"';
}
