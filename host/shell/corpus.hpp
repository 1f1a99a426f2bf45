// Jobs side by side, each in a process of its own: what ends one leaves the others alone.
#pragma once

#include "analysis.hpp"
#include "jobs.hpp"

#include <vector>

namespace shell {

struct Course {
    int sideBySide = 1;
    bool resume = false; // leave out what isDone
};

/// Does the jobs, and says on standard error what becomes of them: a progress bar where that is a terminal
/// (by the program pv, where it is installed), else a line for each file written; a line for each refusal.
/// Results without a file go to standard output in the order of the jobs, with the recordings' names where
/// there are several. Interrupted (SIGINT, SIGTERM, SIGHUP), it ends the running jobs, removes what they have
/// begun, and ends by the same signal; of SIGHUP it takes no notice where that is ignored, as nohup has it.
///
/// @return the program's status: 0 where all is done, else 1.
int work(const Request& request, const std::vector<Job>& jobs, const Course& course);

} // namespace shell
