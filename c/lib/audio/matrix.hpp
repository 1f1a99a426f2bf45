// Matrices as the audio library takes them.
#pragma once

class cAudioMatrix {
public:
    /// matCreate of the utility library: rowNum rows of colNum zero elements of elementSize bytes, released
    /// with matFree; null for rowNum and colNum both 0; fatal path A with "Error in matrixCreate!".
    static void** matCreate(int rowNum, int colNum, int elementSize);
};
