// The recordings in examples/.
#pragma once

#include <string>
#include <vector>

struct Recording {
    int fs = 0; // Hz
    std::vector<int> wave;
};

/// Reads a mono WAV file of examples/ as 16-bit samples; throws if there is none.
Recording readRecording(const std::string& name);
