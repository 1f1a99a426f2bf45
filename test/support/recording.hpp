// The recordings in examples/.
#pragma once

#include <cstddef>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

struct Recording {
    int fs = 0; // Hz
    std::vector<int> wave;
};

/// Reads a mono WAV file of examples/, 16-bit samples behind 44 bytes; throws if there is none.
inline Recording readRecording(const std::string& name) {
    std::ifstream file(WAVEPITCH_EXAMPLES "/" + name, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    if (bytes.size() < 44) throw std::runtime_error("no recording " + name);
    const auto word = [&](std::size_t at) {
        return static_cast<unsigned char>(bytes[at]) + 256 * static_cast<signed char>(bytes[at + 1]);
    };
    Recording recording{word(24), {}};
    for (std::size_t at = 44; at + 1 < bytes.size(); at += 2) recording.wave.push_back(word(at));
    return recording;
}
