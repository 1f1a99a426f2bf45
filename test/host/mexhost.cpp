// mexhost from the outside: what a user types, and what comes back on which channel.

#include "running.hpp"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <vector>

namespace {

using namespace std::string_literals;

const std::string probe = MEXHOST_PROBE " ";
const std::string module = MEXHOST_WAVE2PFMAT " ";
const std::string library = MEXHOST_LIBRARY " ";
const std::string speech = WAVEPITCH_EXAMPLES "/speech8k.wav ";

std::string written(const std::string& name, const std::string& text) {
    std::ofstream(name) << text;
    return name;
}

Result mexhost(const std::string& arguments, const std::string& environment = "") {
    const std::string command = environment + " " MEXHOST_PROGRAM " " + arguments + " >out 2>err";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents("out"), contents("err")};
}

TEST(Mexhost, ShowsOutputsAndErrorsOnTheirChannels) {
    const std::string noAudio = written("noise.wav", "RIFF, but not really");
    const struct {
        std::string arguments;
        int status;
        std::string out, err; // parts of what is printed
    } cases[] = {
        {probe + "0 -.5 nan -inf --out 3", 0,
         "probe: 4 in, 3 out\noutput 1: 1 x 1, min -0.5, max -0.5, mean -0.5\noutput 2: 1 x 1, 1 not a "
         "number\noutput 3: 1 x 1, min -inf",
         ""},
        {probe + "-6 --out 0", 0, "probe: 1 in, 0 out\noutput 1: 2 x 0, empty\n", ""},
        {probe + "1", 1, "probe: 1 in", "error: the module's own error\n"},
        {probe + "2", 1, "probe: 1 in", "error: probe: a fatal text\n"},
        {probe + "3", 1, "probe: 1 in", "error: probe: unexpected exception: a standard exception\n"},
        {probe + "4", 1, "probe: 1 in", "error: probe: unexpected exception of unknown type\n"},
        {probe + "5", 1, "probe: 1 in", "error: an output is not an array of its own"},
        {probe + "0", 1, "probe: 1 in", "error: probe: output 1 was not set\n"},
        {probe + "6 --out 2", 1, "probe: 1 in", "error: probe: output 2 was not set\n"},
        {probe + written("ragged.csv", "1,2\n\n3\n"), 1, "",
         "ragged.csv, line 3: 1 numbers, the lines above have 2\n"},
        {probe + written("words.txt", "1 2\n3 four\n"), 1, "", "words.txt, line 2: numbers between commas"},
        {probe + "missing.csv", 1, "", "error: cannot open missing.csv: no such file\n"},
        {probe + noAudio, 1, "", "noise.wav: not a number, not a table (.csv, .txt), not readable as audio"},
        {module + "speech 4 0 3 0 1", 1, "", "error: mxGetPr cannot be asked of an array of class char\n"},
        {probe + "0 1 2 --out 2 --csv a --csv b --csv c", 1, "", "--csv is for 3 outputs, but 2 asked for"},
        {probe + "0 1 2 --out 2 --times 3", 1, "", "--times is for output 3, but 2 asked for"},
        {probe + "0 1 --csv /nowhere/a.csv", 1, "output 1", "/nowhere/a.csv: cannot be written"},
        {library + "ptParam 8000 --csv /dev/null", 1, "output 1: struct\n  fs = 8000\n",
         "the output has none"},
        {library + "waveVolumeCheck " + speech + "--out 2 --csv /dev/null", 0, "output 2: \"fit\"\n", ""},
        {probe + "0 " + speech + "7 @rate --out 3", 0, "output 3: 1 x 1, min 8000,", ""},
        {noAudio + " 1", 1, "", "noise.wav: cannot be loaded as a module"},
        {"", 2, "", "MODULE is required"},
        {module + speech + "nan 128 128 0 1", 1, "", "error: wave2pfMat: frameSize = nan is not a number"},
        {module + speech + "256 128 128 7 1", 1, "Saved error log",
         "error: wave2pfMat: Unknown pfType=7 (line"},
        {module + speech + "256 128 128 0 9", 1, "Unknown method for frame2amdf()!\n", ""},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.arguments);
        const Result result = mexhost(expected.arguments);
        EXPECT_EQ(result.status, expected.status);
        EXPECT_TRUE(holds(result.out, expected.out)) << result.out;
        EXPECT_TRUE(holds(result.err, expected.err)) << result.err;
        EXPECT_EQ(result.err.empty(), expected.err.empty()) << result.err;
    }
}

TEST(Mexhost, DrawsWhateverComesOut) {
    if (std::system("gnuplot --version >/dev/null") != 0) GTEST_SKIP() << "gnuplot not found";
    const std::string framed = " --frames 256 128 --lags";
    const std::string calls[] = {module + speech + "256 128 128 0 2" + framed, probe + "6" + framed,
                                 probe + "0 '" + written("odd`name`\".txt", "1 nan\n-inf 3e300\n") +
                                     "' --rate 8000",
                                 probe + "0 " + written("nan.csv", "nan nan\nnan nan")};
    for (const std::string& call : calls) {
        std::remove("picture.png");
        const Result result = mexhost(call + " --png picture.png");
        EXPECT_EQ(result.err, "") << call;
        EXPECT_EQ(contents("picture.png").substr(16, 8), "\0\0\x04\xb0\0\0\x03\x20"s)
            << "1200 x 800: " << call;
    }
    EXPECT_EQ(mexhost(probe + "0 1 --png /nowhere/a.png").status, 1);
}

/// What gnuplot is told: a program of that name keeps its input.
std::string scriptOf(const std::string& arguments) {
    std::filesystem::create_directory("bin");
    written("bin/gnuplot", "#!/bin/sh\ncat >script\n");
    std::filesystem::permissions("bin/gnuplot", std::filesystem::perms::owner_all);
    mexhost(arguments + " --png picture.png", "PATH=bin:$PATH");
    return contents("script");
}

std::string bytes(const std::vector<double>& numbers) {
    return {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(double)};
}

TEST(Mexhost, PutsEveryValueInItsPlace) {
    const double gap = std::nan("");
    const struct {
        std::string arguments;
        std::vector<std::string> script; // parts of it
    } cases[] = {
        {module + speech + "256 128 128 0 2 --frames 256 128 --lags",
         {"title \"wave2pfMat (speech8k.wav, 256, 128, 128, 0, 2)\"", "set xrange [0:5.5175", "record=(4012)",
          "set ylabel 'Lag (ms)'", "set xlabel 'Time (s)'",
          "cbrange [0:", "array=(343,128) origin=(0.016,0) dx=0.016"}},
        {probe + "0 " + written("matrix.csv", "1 -2 3\n4 5 nan\n"),
         {"set cbrange [-5:5]", "set xrange [0.5:3.5]", "set yrange [0.5:2.5]", "set xlabel 'Column'",
          "set ylabel 'Row'", "array=(3,2) origin=(1,1) dx=1 dy=1", bytes({1, -2, 3, 4, 5, gap})}},
        {probe + "0 " + written("row.csv", "1,0,3") + " --gaps --label Pitch",
         {"set yrange [0.9", "set xrange [0.5:3.5]", "set ylabel \"Pitch\"", bytes({1, 1, 2, gap, 3, 3})}},
        {probe + "0 " + written("column.csv", "1\n2\n") + " --rate 8 --lags",
         {"set xrange [0:0.25]", "set yrange [-2.1", "set xlabel 'Lag (ms)'", bytes({0, 1, 0.125, 2}),
          bytes({0, 1, 125, 2})}},
        {probe + "0 row.csv " + written("times.csv", "0.5,0.75,1") + " --out 2 --times 2",
         {"set xlabel 'Time (s)'", "set xrange [0.375:1.125]", bytes({0.5, 1, 0.75, 0, 1, 3})}},
        {probe + "6", {"set label '2 x 0: empty'"}},
    };
    for (const auto& expected : cases) {
        const std::string script = scriptOf(expected.arguments);
        for (const std::string& part : expected.script)
            EXPECT_TRUE(holds(script, part)) << expected.arguments << " without " << part;
    }
}

} // namespace
