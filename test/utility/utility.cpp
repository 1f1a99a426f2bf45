// Rounding, the fatal paths, console and keyboard.

#include "support/utilityTest.hpp"

#include <cstdio>
#include <ctime>
#include <fstream>
#include <iterator>
#include <unistd.h>

namespace {

TEST(Rounding, HalvesGoAwayFromZeroAndExtremesSaturate) {
    for (const double x : {2.5, -2.5, 0.5, -0.4, 2147483646.5, 3e9, -3e9, HUGE_VAL, -HUGE_VAL}) {
        const double rounded = std::clamp<double>(std::round(x), INT_MIN, INT_MAX);
        EXPECT_EQ(myRound(x), rounded) << x;
        EXPECT_EQ(myRound(static_cast<float>(x)), rounded) << x;
    }
    EXPECT_EQ(myRound(NAN), 0);
    EXPECT_EQ(myRound(0.49999997F), 0) << "the half is added in double";
}

TEST(Rounding, IntDivIsNearestForEveryDivisor) {
    for (const int a : {INT_MIN, -7, 5, 7, INT_MAX})
        for (const int b : {1, 2, 4, INT_MAX})
            EXPECT_EQ(intDiv(a, b), std::round(1.0 * a / b)) << a << " / " << b;
    EXPECT_EQ(intDiv(7, -2), -3);
    EXPECT_EQ(intDiv(7, 0), 0);
    EXPECT_EQ(intDiv(INT_MIN, -1), INT_MAX);
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
    EXPECT_EQ(fatalMessage([&] { showErrorMsg(name.c_str()); }), name);
    EXPECT_EQ(hostError([&] { fisError(name.c_str()); }), name);
    EXPECT_EQ(fatalMessage([&] { myExitFormatted("Cannot open file %s", name.c_str()); }),
              ("Cannot open file " + name).substr(0, 999));
}

TEST(Console, InputArrivesInPiecesAndItsEndIsFatal) {
    stdin = std::tmpfile(); // no other test reads it
    std::fputs(("\nx" + std::string(300, 'a') + "\nlast").c_str(), stdin);
    std::rewind(stdin);
    const ConsoleCapture console;
    EXPECT_EQ(pauseForInput(), '\n');
    EXPECT_EQ(pauseForInput(), 'x');
    myPrintf("%d %s", 1, "silent");
    EXPECT_EQ(console.text(), "Hit RETURN to continue ...\nHit RETURN to continue ...\n");
    char buf[256];
    EXPECT_EQ(myGets(buf), std::string(255, 'a'));
    EXPECT_EQ(myGets(buf), std::string(45, 'a') + "\n");
    EXPECT_EQ(std::string(myGets(buf)) + buf, "lastlast");
    EXPECT_EQ(fatalMessage([&] { myGets(buf); }), "Error reading string" + inUtility);
    EXPECT_EQ(pauseForInput(), EOF);
}

TEST(Console, SleepSpendsProcessorTimeAndRefusesWhatIsNoDuration) {
    for (const float seconds : {0.03F, 0.0F, -1.0F, -INFINITY, NAN}) {
        const std::clock_t start = std::clock();
        sleep(seconds);
        EXPECT_FALSE(static_cast<float>(std::clock() - start) < seconds * 990000.0F) << seconds;
    }
}

} // namespace
