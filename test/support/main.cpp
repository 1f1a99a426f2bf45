// Runs a test program in a directory of its own, which is the tests' temporary directory, too, and goes with
// the program: programs that run at the same time share no file, and none stays behind.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (const char* const locale = std::getenv("TEST_LOCALE")) std::setlocale(LC_ALL, locale);
    std::string directory = std::filesystem::temp_directory_path() / "wavepitch-XXXXXX";
    if (!mkdtemp(directory.data())) return EXIT_FAILURE;
    setenv("TEST_TMPDIR", directory.c_str(), 1);
    std::filesystem::current_path(directory);
    const int status = RUN_ALL_TESTS();
    std::filesystem::current_path("/");
    std::filesystem::remove_all(directory);
    return status;
}
