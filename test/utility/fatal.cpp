#include "utility/utility.hpp"

#include "support/console.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

std::string errorLog() {
    std::ifstream log("/tmp/error.log");
    return {std::istreambuf_iterator<char>(log), {}};
}

TEST(FatalPath, LogHoldsOneLineOfTheLastErrorAndTheTextOutlivesTheUnwinding) {
    const ConsoleCapture console;
    for (const std::string& message : {std::string("first, and longer than what follows"),
                                       std::string("100%s %n"), std::string(5000, 'x')}) {
        const char* carried = nullptr;
        try {
            std::string local = message; // gone when the exception arrives
            myExit(local.c_str());
        } catch (const char* text) {
            carried = text;
        }
        ASSERT_NE(carried, nullptr);
        EXPECT_EQ(carried, message);
        EXPECT_EQ(errorLog(), "Error: " + message + "\n");
    }
    const std::string line = "\nSaved error log at /tmp/error.log...\n";
    EXPECT_EQ(console.text(), line + line + line);
}

TEST(FatalPath, FormattedMessagesAreBounded) {
    const std::string name(3000, 'n');
    EXPECT_EQ(fatalMessage([&] { myExitFormatted("Cannot open file %s", name.c_str()); }),
              ("Cannot open file " + name).substr(0, 999));
}

TEST(FatalPath, ForwardersKeepTheirPath) {
    EXPECT_EQ(fatalMessage([] { showErrorMsg("a message"); }), "a message");
    EXPECT_EQ(hostError([] { fisError("a message"); }), "a message");
}

} // namespace
