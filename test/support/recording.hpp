// The recordings in examples/.
#pragma once

#include <sndfile.hh>
#include <stdexcept>
#include <string>
#include <vector>

struct Recording {
    int fs = 0; // Hz
    std::vector<int> wave;
};

/// Reads a mono WAV file of examples/ as 16-bit samples; throws if there is none.
inline Recording readRecording(const std::string& name) {
    SndfileHandle file(WAVEPITCH_EXAMPLES "/" + name);
    if (file.error()) throw std::runtime_error("no recording " + name);
    std::vector<short> samples(static_cast<size_t>(file.frames()));
    file.readf(samples.data(), file.frames());
    return {file.samplerate(), {samples.begin(), samples.end()}};
}
