// Recordings as sound files have them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "standIn.hpp"

struct Recording {
    mxArray samples; // samples x channels, full scale -1 to 1, as the host's audioread gives them
    double rate = 0; // Hz
};

/// How the samples of a file without a header lie: one channel, lowest byte first.
struct RawFormat {
    int rate = 0;   // Hz; 0 for files with a header
    int format = 0; // libsndfile's number of the sample format
};

/// The format that "RATE:FORMAT" names, FORMAT being one of s8, u8, s16, s24, s32, f32, f64, ulaw, alaw.
/// Anything else is a std::runtime_error.
RawFormat rawFormat(const std::string& text);

/// Makes one channel of frames of several, in place; what it throws ends the reading.
using Mixer = std::function<void(std::vector<double>& frames, size_t channels)>;

/// Reads audio of any format that libsndfile reads, to its end. What cannot be read, and a file that ends
/// before its header says, is a std::runtime_error that tells why, without the file's name.
///
/// Memory: 8 bytes for each sample that is handed out, twice as many for several channels without a mixer.
///
/// @param raw    of a file that does not begin as those with a header do.
/// @param mixer  makes one channel of each block that is read; without, all channels are handed out.
Recording readRecording(const std::string& path, const RawFormat& raw = {}, const Mixer& mixer = {});

/// Writes samples of one channel, full scale -1 to 1, as a WAV file of 32-bit floating point. A file that
/// cannot be written is a std::runtime_error, without its name.
void writeWav(const std::string& path, const mxArray& samples, int rate);
