#include "utility/matrix/matrix.hpp"

#include "utility/fatal.hpp"

#include "mex.h"

namespace {

/// calloc that knows negative numbers, and whose empty block is not null.
void* zeros(int count, int size) {
    if (count < 0 || size < 0) return nullptr;
    const bool empty = count == 0 || size == 0;
    return empty ? std::calloc(1, 1) : std::calloc(static_cast<size_t>(count), static_cast<size_t>(size));
}

template <typename Fail>
void** create(int rowNum, int colNum, int elementSize, Fail fail) {
    if (rowNum == 0 && colNum == 0) return nullptr;
    auto** matrix = static_cast<void**>(zeros(rowNum, sizeof(void*)));
    if (!matrix) fail();
    for (int row = 0; row < rowNum; ++row) {
        matrix[row] = zeros(colNum, elementSize);
        if (!matrix[row]) {
            fisFreeMatrix(matrix, row);
            fail();
        }
    }
    return matrix;
}

} // namespace

void** matCreate(int rowNum, int colNum, int elementSize) {
    return create(rowNum, colNum, elementSize, [] { showErrorMsg("Error in matrixCreate!"); });
}

void** fisCreateMatrix(int rowNum, int colNum, int elementSize) {
    return create(rowNum, colNum, elementSize, [] { mexErrMsgTxt("Error in fisCreateMatrix!"); });
}

void fisFreeMatrix(void** matrix, int rowNum) {
    if (!matrix) return;
    for (int row = 0; row < rowNum; ++row) std::free(matrix[row]);
    std::free(matrix);
}

void wavepitch::utility::reportFreeRow(int row) {
    mexPrintf("Error in matFree(): row %d is already free!\n", row);
}

void wavepitch::utility::reportFreeMatrix() {
    mexPrintf("Error in matrixFree(): given matrix is already free!\n");
}
