// mexhost from the outside: what a user types, and what comes back on which channel.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

const std::string probe = MEXHOST_PROBE " ";
const std::string directory = testing::TempDir() + "mexhost-" + std::to_string(getpid()) + "-";

std::string contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string written(const std::string& name, const std::string& text) {
    std::ofstream(directory + name) << text;
    return directory + name;
}

struct Result {
    int status;
    std::string out;
    std::string err;
};

Result mexhost(const std::string& arguments) {
    const std::string out = directory + "out";
    const std::string err = directory + "err";
    const int status = std::system((MEXHOST_PROGRAM " " + arguments + " >" + out + " 2>" + err).c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(out), contents(err)};
}

TEST(Mexhost, ShowsOutputsAndErrorsOnTheirChannels) {
    const std::string ragged = written("ragged.csv", "1,2\n\n3\n");
    const std::string words = written("words.txt", "1 2\n3 four\n");
    const std::string noAudio = written("noise.wav", "RIFF, but not really");
    const std::string speech = WAVEPITCH_EXAMPLES "/speech8k.wav ";
    const std::string module = MEXHOST_WAVE2PFMAT " ";
    const struct {
        std::string arguments;
        int status;
        std::string out, err; // parts of what is printed
    } cases[] = {
        {probe + "0 -2.5", 0, "probe: 2 in, 1 out\noutput 1: 1 x 1, min -2.5, max -2.5, mean -2.5\n", ""},
        {probe + "0 1 -.5 -inf --out 3", 0, "output 3: 1 x 1, min -inf", ""},
        {probe + "0 1 nan --out 2", 0, "output 2: 1 x 1, 1 not a number", ""},
        {probe + "-6", 0, "output 1: 2 x 0, empty", ""},
        {probe + "1", 1, "probe: 1 in", "error: the module's own error\n"},
        {probe + "2", 1, "probe: 1 in", "error: probe: a fatal text\n"},
        {probe + "3", 1, "probe: 1 in", "error: probe: unexpected exception: a standard exception\n"},
        {probe + "4", 1, "probe: 1 in", "error: probe: unexpected exception of unknown type\n"},
        {probe + "5", 1, "probe: 1 in", "error: an output is not an array of its own"},
        {probe + "6 --out 2", 1, "probe: 1 in", "error: probe: output 2 was not set\n"},
        {probe + ragged, 1, "", "ragged.csv, line 3: 1 numbers, the lines above have 2\n"},
        {probe + words, 1, "", "words.txt, line 2: numbers between commas"},
        {probe + "missing.csv", 1, "", "missing.csv: cannot be opened"},
        {probe + noAudio, 1, "", "noise.wav: not a number, not a table (.csv, .txt), not readable as audio"},
        {probe + "0 1 --csv /nowhere/a.csv", 1, "output 1", "/nowhere/a.csv: cannot be written"},
        {noAudio + " 1", 1, "", "noise.wav: cannot be loaded as a module"},
        {"", 2, "", "MODULE is required"},
        {probe + "0 --nonsense", 2, "", "--nonsense"},
        {module + "1 2", 1, "", "error: Usage: out = wave2pfMat(wave, frameSize, overlap, pfLen, pfType, p"},
        {module + speech + "256 128 128 7 1", 1, "Saved error log",
         "error: wave2pfMat: Unknown pfType=7 (line"},
        {module + speech + "256 128 128 0 9", 1, "Unknown method for frame2amdf()!\n", ""},
        {module + speech + "1e6 0 128 0 1", 0, "output 1: 128 x 0, empty\n", ""},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.arguments);
        const Result result = mexhost(expected.arguments);
        EXPECT_EQ(result.status, expected.status);
        EXPECT_NE(result.out.find(expected.out), std::string::npos) << result.out;
        EXPECT_NE(result.err.find(expected.err), std::string::npos) << result.err;
        EXPECT_EQ(result.err.empty(), expected.err.empty()) << result.err;
    }
}

TEST(Mexhost, TablesKeepEveryBitOfADouble) {
    std::mt19937_64 random(1);
    std::vector<double> values{-0.0, 5e-324, 1.7976931348623157e308, 0.1, 1 / 3.0, -HUGE_VAL};
    while (values.size() < 1500) {
        const auto value = std::bit_cast<double>(random());
        if (std::isfinite(value)) values.push_back(value);
    }
    std::ostringstream table;
    table.precision(17);
    const char* separators[] = {",", "; ", " ", "\t", " , ", "\r\n\n"}; // six numbers in a line
    for (size_t i = 0; i < values.size(); ++i) table << values[i] << separators[i % 6];
    const std::string csv = directory + "echo.csv";
    ASSERT_EQ(mexhost(probe + "0 " + written("table.txt", table.str()) + " --csv " + csv).status, 0);
    std::istringstream echo(contents(csv));
    std::string number;
    for (size_t i = 0; i < values.size(); ++i) {
        ASSERT_TRUE(std::getline(echo, number, i % 6 == 5 ? '\n' : ','));
        EXPECT_EQ(std::bit_cast<std::uint64_t>(std::strtod(number.c_str(), nullptr)),
                  std::bit_cast<std::uint64_t>(values[i]));
    }
    EXPECT_FALSE(std::getline(echo, number));
}

TEST(Mexhost, DrawsWhateverComesOut) {
    if (std::system("gnuplot --version >/dev/null") != 0) GTEST_SKIP() << "gnuplot not found";
    const std::string speech = WAVEPITCH_EXAMPLES "/speech8k.wav ";
    const std::string framed = " --frames 256 128 --lags";
    const std::string calls[] = {MEXHOST_WAVE2PFMAT " " + speech + "256 128 128 0 2" + framed,
                                 MEXHOST_WAVE2PFMAT " " + speech + "256 128 1 1 1" + framed,
                                 probe + "6" + framed,
                                 probe + "0 3",
                                 probe + "0 '" + written("odd`name`\".txt", "1 nan\n-inf 3e300\n") +
                                     "' --rate 8000",
                                 probe + "0 " + written("row.csv", "1,2,3"),
                                 probe + "0 " + written("nan.csv", "nan nan\nnan nan")};
    const std::string path = directory + "picture.png";
    const std::string png = " --png " + path;
    for (const std::string& call : calls) {
        std::remove(path.c_str());
        const Result result = mexhost(call + png);
        EXPECT_EQ(result.status, 0) << call;
        EXPECT_EQ(result.err, "") << call;
        EXPECT_EQ(contents(path).substr(1, 3) + contents(path).substr(16, 8),
                  std::string("PNG\0\0\x04\xb0\0\0\x03\x20", 11)) // 1200 x 800
            << call;
    }
    const Result refused = mexhost(probe + "0 1 --png /nowhere/a.png");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("/nowhere/a.png"), std::string::npos) << refused.err;
}

} // namespace
