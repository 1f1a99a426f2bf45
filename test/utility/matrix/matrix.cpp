#include "support/utilityTest.hpp"

#include "audio/audio.hpp"

namespace {

TEST(Matrix, IsZeroFilledAndReleased) {
    auto** matrix = reinterpret_cast<float**>(cAudio::matCreate(3, 257, 4));
    for (int row = 0; row < 3; ++row) EXPECT_EQ(std::count(matrix[row], matrix[row] + 257, 0.0F), 257);
    std::free(matrix[1]);
    matrix[1] = nullptr;
    const ConsoleCapture console;
    matFree(matrix, 3);
    matFree(static_cast<float**>(nullptr), 3);
    EXPECT_EQ(console.text(), "Error in matFree(): row 1 is already free!\n"
                              "Error in matrixFree(): given matrix is already free!\n");
}

TEST(Matrix, MayBeEmptyButNotNegative) {
    EXPECT_EQ(matCreate(0, 0, 8), nullptr);
    void** matrix = fisCreateMatrix(2, 0, 8);
    EXPECT_NE(matrix[1], nullptr);
    fisFreeMatrix(matrix, 2);
    EXPECT_EQ(hostError([] { fisCreateMatrix(-3, 0, 8); }), "Error in fisCreateMatrix!");
    EXPECT_EQ(fatalMessage([] { cAudio::matCreate(3, -1, 8); }), "Error in matrixCreate!");
}

} // namespace
