#include "utility/utility.hpp"

#include "support/console.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <string>

namespace {

/// Standard input reads the text while it lives.
class StandardInput {
public:
    explicit StandardInput(const std::string& text) : before(stdin), file(std::tmpfile()) {
        std::fputs(text.c_str(), file);
        std::rewind(file);
        stdin = file;
    }
    ~StandardInput() {
        stdin = before;
        std::fclose(file);
    }

private:
    std::FILE* before;
    std::FILE* file;
};

TEST(Console, LinesArriveInPiecesAndTheEndIsFatal) {
    const StandardInput input(std::string(300, 'a') + "\nlast");
    char buf[256];
    EXPECT_EQ(myGets(buf), buf);
    EXPECT_EQ(std::string(buf), std::string(255, 'a'));
    EXPECT_EQ(std::string(myGets(buf)), std::string(45, 'a') + "\n");
    EXPECT_EQ(std::string(myGets(buf)), "last");
    EXPECT_EQ(fatalMessage([&] { myGets(buf); }),
              "Error reading string (line N of ../../../../c/lib/utility/utility)");
}

TEST(Console, PauseAnswersTheFirstCharacter) {
    const ConsoleCapture console;
    const StandardInput input("\nx");
    EXPECT_EQ(pauseForInput(), '\n');
    EXPECT_EQ(pauseForInput(), 'x');
    EXPECT_EQ(pauseForInput(), EOF);
    myPrintf("%d %s", 1, "silent");
    EXPECT_EQ(console.text().substr(0, 27), "Hit RETURN to continue ...\n");
    EXPECT_EQ(console.text().size(), 3U * 27U);
}

TEST(Console, SleepSpendsProcessorTimeAndRefusesWhatIsNoDuration) {
    for (const float seconds : {0.03F, 0.0F, -1.0F, -INFINITY, NAN}) {
        const std::clock_t start = std::clock();
        sleep(seconds);
        const double spent = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        EXPECT_GE(spent, seconds > 0 ? static_cast<double>(seconds) * 0.99 : 0.0);
    }
}

} // namespace
