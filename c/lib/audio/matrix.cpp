#include "audio/matrix.hpp"

#include "utility/matrix/matrix.hpp"

void** cAudioMatrix::matCreate(int rowNum, int colNum, int elementSize) {
    return ::matCreate(rowNum, colNum, elementSize);
}
