// What is to be done: a job for each recording, and where its results go.
#pragma once

#include <string>
#include <vector>

namespace shell {

inline constexpr const char* standardOutput = "/dev/stdout";

struct Job {
    std::string recording; // "" for a function that takes none
    std::string table;     // the file of results; "" for standard output
    std::string picture;   // "" for none; may be standardOutput, where the table is not
    std::string refusal;   // why it cannot be done, where that is known beforehand
};

struct Places {
    bool recursive = false;    // folders stand for the recordings in them
    bool endsWithZero = false; // names on standard input end with a zero byte instead of a line's end
    bool raw = false;          // files without a header are wanted, too
    std::string file;          // of results, for one recording
    std::string folder;        // of results, under the recordings' own paths; "" for none
    std::string extension;     // of results
    std::string picture;       // for one recording
    bool pictures = false;     // a .png beside each table

    std::vector<std::string> inputs; // files that are read besides the recordings
};

/// The jobs of recordings, in order; "-" stands for the names on standard input, a folder for the recordings
/// in it, at any depth and in the order of their names; without words, the one job of a function that takes
/// no recording. A name that stands for nothing is a job with a refusal, as is one that would write the same
/// file twice, or over what is read, and the second of two that would write the same file.
std::vector<Job> jobsOf(const std::vector<std::string>& words, const Places& places);

/// Whether all that a job writes is there and newer than its recording.
bool isDone(const Job& job);

} // namespace shell
