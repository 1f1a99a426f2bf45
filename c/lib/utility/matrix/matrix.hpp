// Matrices as arrays of row pointers: element (r, c) is matrix[r][c]. Each row is a zero-filled block of its
// own. A matrix does not record its sizes: the caller keeps them, owns the matrix and releases it with
// matFree or fisFreeMatrix.
#pragma once

#include <cstdlib>

/// A matrix of zeros.
///
/// @param rowNum       number of rows.
/// @param colNum       elements per row.
/// @param elementSize  bytes per element.
/// @return             rowNum row pointers, to be read as rows of the caller's element type; null for rowNum
///                     and colNum both 0. With no rows and colNum other than 0 an array without rows, with
///                     colNum 0 or elementSize 0 rows without elements, all of it to be released.
///
/// A negative rowNum, a negative colNum or elementSize of a row, and memory that is not to be had leave by
/// fatal path A with "Error in matrixCreate!", and nothing stays allocated.
void** matCreate(int rowNum, int colNum, int elementSize);

/// The same, failing by path C, the host's error function, with "Error in fisCreateMatrix!".
void** fisCreateMatrix(int rowNum, int colNum, int elementSize);

/// Releases a matrix. A row pointer that is null already is reported on the host console ("Error in
/// matFree(): row %d is already free!\n"), the other rows are released and their pointers set to null. A null
/// matrix is reported ("Error in matrixFree(): given matrix is already free!\n") and left alone.
///
/// @param matrix  rowNum row pointers, or null.
/// @param rowNum  number of rows; below 1 only the array of row pointers is released.
template <typename T>
void matFree(T** matrix, int rowNum);

/// Releases a matrix and prints nothing: null rows are passed over, a null matrix is left alone.
void fisFreeMatrix(void** matrix, int rowNum);

namespace wavepitch::utility {

void reportFreeRow(int row);
void reportFreeMatrix();

} // namespace wavepitch::utility

template <typename T>
void matFree(T** matrix, int rowNum) {
    if (!matrix) {
        wavepitch::utility::reportFreeMatrix();
        return;
    }
    for (int row = 0; row < rowNum; ++row) {
        if (!matrix[row]) {
            wavepitch::utility::reportFreeRow(row);
            continue;
        }
        std::free(matrix[row]);
        matrix[row] = nullptr;
    }
    std::free(matrix);
}
