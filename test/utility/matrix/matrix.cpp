#include "support/utilityTest.hpp"

#include "audio/audio.hpp"

namespace {

TEST(Matrix, IsZeroFilledAndReleased) {
    auto** matrix = reinterpret_cast<float**>(cAudio::matCreate(3, 257, sizeof(float)));
    for (int r = 0; r < 3; ++r) EXPECT_EQ(std::count(matrix[r], matrix[r] + 257, 0.0F), 257);
    std::free(matrix[1]);
    matrix[1] = nullptr;
    const ConsoleCapture console;
    matFree(matrix, 3);
    matFree(static_cast<float**>(nullptr), 3);
    EXPECT_EQ(console.text(), "Error in matFree(): row 1 is already free!\n"
                              "Error in matrixFree(): given matrix is already free!\n");
}

TEST(Matrix, ShapesThatCannotBeFailTheWayOfTheirOperation) {
    const int sizes[][3] = {{0, 0, 8},       {0, -5, 8}, {4, 0, 8}, {4, 5, 0},
                            {INT_MIN, 0, 8}, {3, -1, 8}, {3, 2, -1}};
    for (const auto& s : sizes) {
        const bool fails = s[0] < 0 || (s[0] > 0 && (s[1] < 0 || s[2] < 0));
        EXPECT_EQ(hostError([&] { fisFreeMatrix(fisCreateMatrix(s[0], s[1], s[2]), s[0]); }),
                  fails ? "Error in fisCreateMatrix!" : "")
            << s[0] << ' ' << s[1] << ' ' << s[2];
    }
    EXPECT_EQ(fatalMessage([] { cAudio::matCreate(3, -1, 8); }), "Error in matrixCreate!");
}

} // namespace
