// The frames that a command works in, and their place in time.
#pragma once

#include "results.hpp"

struct Framing {
    int fs;
    int frameSize;
    int overlap;
    int waveLen;

    double step() const { return static_cast<double>(frameSize) - overlap; }
    /// Whole frames; 0 for a recording that is too short for one.
    int frameNum() const;
    /// The first and the last sample of a frame, from 1.
    double firstSample(int frame) const { return frame * step() + 1; }
    double lastSample(int frame) const { return frame * step() + frameSize; }
    /// The centres in seconds of count frames from the first on, from 0: 1 x count.
    mxArray* time(int first, int count) const;
    mxArray* time() const { return time(0, frameNum()); }
};

/// Reads the options frameSize (32 ms) and overlap (half of it).
Framing readFraming(const Options& options, int fs, int waveLen, int mostFrameSize = mostInt);
