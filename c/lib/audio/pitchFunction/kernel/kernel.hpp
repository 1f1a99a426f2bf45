// The pitch functions' kernels: what a call hands to them, and their versions, one for each instruction set.
// All versions give the same bits.
#pragma once

#include "utility/instructionSet.hpp"

#include <cstddef>
#include <cstdint>

namespace wavepitch::pitchFunction {

/// What to compute of each frame. Lag i has min(maxTerms, frameSize - i) terms.
struct Task {
    std::size_t frameSize;
    std::size_t lags;     // at most frameSize
    std::size_t maxTerms; // 0 to frameSize
    std::size_t stride;   // values from one frame's pitch function to the next one's
    bool acf;             // products, else absolute differences
    bool average;         // divide the value at lag i by frameSize - i
    bool flip;            // reverse frames as cAudio::frameFlip does
    bool removeMean;      // as frame2acf does, after the flip
};

/// The task of a pitch function of pfLen lags by a method from 1 to 4, without flip and mean removal. Of
/// negative sizes nothing is left to do.
Task taskOf(int frameSize, int pfLen, bool acf, int method);

/// One version. The frames are wave[start[i]] and the frameSize - 1 samples behind it, i < frameNum; their
/// pitch functions go to pf + i * stride. The task has 1 lag or more. work is a block of workSize bytes,
/// aligned to 64.
struct Version {
    std::size_t (*workSize)(const Task& task, bool ofInts, std::size_t frameNum);
    void (*ofDoubles)(const Task& task, const double* wave, const int* start, std::size_t frameNum,
                      void* work, double* pf);
    void (*ofInts)(const Task& task, const int* wave, const int* start, std::size_t frameNum, void* work,
                   double* pf);
    void (*flipInts)(int* frame, std::size_t frameSize);  // cAudio::frameFlip, frameSize 1 or more
    int (*removeMean)(int* frame, std::size_t frameSize); // as frame2acf does; returns the mean
};

template <InstructionSet set>
Version versionOf();

/// The version that the next call uses.
Version version();

/// The mean that ints deviate from where cAudio::frameFlip compares a frame's halves.
int roundedMean(std::int64_t sum, std::size_t n);

} // namespace wavepitch::pitchFunction
