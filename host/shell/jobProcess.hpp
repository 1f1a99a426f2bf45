// What a job's process does, and how it tells the one that has started it: by files in memory, which no full
// disk concerns.
#pragma once

#include "analysis.hpp"
#include "jobs.hpp"

#include <cstdio>
#include <memory>
#include <string>

namespace shell {

struct Answer {
    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
    File report; // what the process says on its console; where it fails, the last line is the reason
    File result; // the table or the picture, where it goes to standard output
};

/// An empty answer; a std::runtime_error where the system has no room for one.
Answer emptyAnswer();

/// All that one of its files holds.
std::string contentsOf(const Answer::File& file);

/// Does a job in its process.
///
/// @param name  of the recording, where tables tell it; else "".
/// @param mark  of its files while they are not whole.
/// @return      the status of the process.
int runJob(const Request& request, const Job& job, const std::string& name, const std::string& mark,
           const Answer& answer);

} // namespace shell
