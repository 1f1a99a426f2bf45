// The frames that a command works in, and their place in time.
#pragma once

#include "results.hpp"

struct Framing {
    int fs;
    int frameSize;
    int overlap;
    int waveLen;

    int step() const { return frameSize - overlap; }
    /// Whole frames; 0 for a recording that is too short for one.
    int frameNum() const;
    /// The first and the last sample of a frame, from 1.
    double firstSample(int frame) const { return static_cast<double>(frame) * step() + 1; }
    double lastSample(int frame) const { return static_cast<double>(frame) * step() + frameSize; }
    /// The centres of the frames in seconds, 1 x frameNum.
    mxArray* time() const;
};

/// Reads the options frameSize (32 ms) and overlap (half of it).
Framing readFraming(const Options& options, int fs, int waveLen, int mostFrameSize = mostInt);
