// Rounding, the fatal paths, console and keyboard.

#include "support/utilityTest.hpp"

#include "audio/audio.hpp"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace {

TEST(Rounding, HalvesGoAwayFromZeroAndExtremesSaturate) {
    const std::pair<double, int> cases[] = {
        {2.5, 3}, {-2.5, -3}, {NAN, 0}, {-3e9, INT_MIN}, {2147483647.5, INT_MAX}};
    for (const auto& [x, rounded] : cases) EXPECT_EQ(myRound(x), rounded) << x;
    EXPECT_EQ(cAudio::myRound2(0.49999997F), 0); // the half is added in double
    EXPECT_EQ(clampToInt(INT64_MIN), INT_MIN);
}

TEST(Rounding, IntDivIsNearestForEveryDivisor) {
    EXPECT_EQ(cAudio::intDiv(7, 3), 2);
    EXPECT_EQ(cAudio::intDiv(-8, 3), -3);
    EXPECT_EQ(cAudio::intDiv(7, -2), -3);
    EXPECT_EQ(cAudio::intDiv(7, 0), 0);
    EXPECT_EQ(cAudio::intDiv(INT_MAX, 2), 1 << 30);
    EXPECT_EQ(cAudio::intDiv(INT_MIN, -1), INT_MAX);
}

/// What the error log holds after the message: of many tries the first as wanted, for other programs write
/// it, too.
std::string logAfter(const std::string& message, const std::string& wanted) {
    std::string log;
    for (int tries = 0; tries < 200 && log != wanted; ++tries) {
        const ConsoleCapture console;
        try {
            myExit(std::string(message).c_str()); // gone when the exception arrives
        } catch (const char* carried) {
            EXPECT_EQ(carried, message);
        }
        EXPECT_EQ(console.text(), "\nSaved error log at /tmp/error.log...\n");
        std::ifstream file("/tmp/error.log");
        log.assign(std::istreambuf_iterator<char>(file), {});
    }
    return log;
}

TEST(FatalPath, LogHoldsOneLineOfTheLastErrorAndTheTextOutlivesTheUnwinding) {
    const std::string own = std::to_string(getpid());
    for (const std::string& message : {own + ", and longer than what follows", "100%s %n" + own}) {
        const std::string line = "Error: " + message + "\n";
        EXPECT_EQ(logAfter(message, line), line);
    }
}

TEST(FatalPath, LongMessagesAreCutOnlyWhereTheyAreFormatted) {
    const std::string name(5000, 'n');
    EXPECT_EQ(fatalMessage([&] { cAudio::showErrorMsg(name.c_str()); }), name);
    EXPECT_EQ(hostError([] { fisError("n"); }), "n");
    EXPECT_EQ(fatalMessage([&] { myExitFormatted("%s", name.c_str()); }), name.substr(0, 999));
}

TEST(Console, InputArrivesInPiecesAndItsEndIsFatal) {
    stdin = std::tmpfile(); // no other test reads it
    std::fprintf(stdin, "\n%0300d\n", 0);
    std::rewind(stdin);
    const ConsoleCapture console;
    EXPECT_EQ(pauseForInput(), '\n');
    EXPECT_EQ(console.text(), "Hit RETURN to continue ...\n");
    char buf[256];
    EXPECT_EQ(myGets(buf), std::string(255, '0'));
    EXPECT_EQ(myGets(buf), std::string(45, '0') + '\n');
    EXPECT_EQ(fatalMessage([&] { myGets(buf); }), "Error reading string" + inUtility);
}

} // namespace
