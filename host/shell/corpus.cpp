#include "corpus.hpp"

#include "file.hpp"
#include "jobProcess.hpp"
#include "progress.hpp"
#include "signals.hpp"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <map>
#include <random>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace shell {

namespace {

/// Has this process killed when its parent dies, of whatever it be: nobody would end it any more.
void endWith(pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
}

struct Child {
    size_t job;
    Answer answer;
};

/// How the jobs went.
struct Tally {
    size_t done = 0;
    size_t refused = 0;
    size_t leftOut = 0;
};

class Corpus {
public:
    Corpus(const Request& itsRequest, const std::vector<Job>& itsJobs, const Course& itsCourse)
        : request(itsRequest), jobs(itsJobs), course(itsCourse), progress(itsJobs.size()) {}

    int work() {
        int signal = SIGCHLD;
        while (signal == SIGCHLD) {
            fill();
            if (children.empty()) break;
            signal = signals.next();
            if (signal == SIGCHLD) reap();
        }
        if (signal != SIGCHLD) stop(signal);
        progress.finish();
        if (jobs.size() > 1) sayTally("");
        if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0)
            throw std::runtime_error("standard output cannot be written");
        return tally.refused > 0 ? 1 : 0;
    }

private:
    bool writesToOutput(const Job& job) const { return job.table.empty(); }

    std::string nameOf(const Job& job) const {
        return job.recording.empty() ? request.function->name : job.recording;
    }

    std::string mark(size_t job) const { return ownMark + std::to_string(job); }

    void fill() {
        for (; next < jobs.size() && children.size() < static_cast<size_t>(course.sideBySide); ++next) {
            const Job& job = jobs[next];
            if (!job.refusal.empty())
                refused(next, job.refusal);
            else if (course.resume && isDone(job))
                leaveOut(next);
            else if (!starts(next))
                break;
        }
    }

    /// Where the system has no room for one more, those that run make some: the job waits.
    bool starts(size_t job) {
        try {
            start(job);
        } catch (const std::runtime_error& error) {
            if (!children.empty()) return false;
            refused(job, error.what());
        }
        return true;
    }

    void start(size_t job) {
        Child child{job, emptyAnswer()};
        const std::string itsMark = mark(job);
        const pid_t parent = getpid();
        std::fflush(nullptr);
        const pid_t pid = fork();
        if (pid < 0) throw std::runtime_error(std::string("no process: ") + std::strerror(errno));
        if (pid == 0) {
            children.clear(); // their files are the parent's to read
            endWith(parent);
            setpgid(0, 0);
            signals.restore();
            _exit(runJob(request, jobs[job], jobs.size() > 1 ? jobs[job].recording : "", itsMark,
                         child.answer));
        }
        setpgid(pid, pid); // a picture's program ends with its job
        children.emplace(pid, std::move(child));
    }

    /// All children that have ended.
    void reap() {
        int status = 0;
        for (pid_t pid; (pid = waitpid(-1, &status, WNOHANG)) > 0;) {
            const auto child = children.find(pid);
            if (child == children.end()) continue;
            finish(child->second, status);
            children.erase(child);
        }
    }

    void finish(const Child& child, int status) {
        const std::string report = contentsOf(child.answer.report);
        if (WIFSIGNALED(status)) {
            removeParts(child.job);
            return refused(child.job,
                           std::string("the computation ended by a signal: ") + strsignal(WTERMSIG(status)));
        }
        if (WEXITSTATUS(status) != 0) return refused(child.job, lastLine(report));
        sayLines(child.job, report);
        ++tally.done;
        if (jobs.size() > 1 && !writesToOutput(jobs[child.job]) && !progress.isBar())
            progress.say(inOneLine(jobs[child.job].table));
        through(child.job, contentsOf(child.answer.result));
    }

    static std::string lastLine(std::string report) {
        while (report.ends_with('\n')) report.pop_back();
        return report.empty() ? "the computation ended without a word"
                              : report.substr(report.rfind('\n') + 1);
    }

    /// What the library has said on its console.
    void sayLines(size_t job, const std::string& report) const {
        for (size_t at = 0; at < report.size();) {
            const size_t end = std::min(report.find('\n', at), report.size());
            if (end > at) say(job, report.substr(at, end - at));
            at = end + 1;
        }
    }

    /// A line that begins with the recording, or the function, whose own messages do so already.
    void say(size_t job, const std::string& message) const {
        const std::string name = nameOf(jobs[job]) + ": ";
        const bool isNamed = jobs[job].recording.empty() && message.starts_with(name);
        progress.say("wavepitch: " + inOneLine((isNamed ? "" : name) + message));
    }

    void refused(size_t job, const std::string& reason) {
        say(job, reason);
        ++tally.refused;
        through(job, "");
    }

    void leaveOut(size_t job) {
        ++tally.leftOut;
        through(job, "");
    }

    /// Hands on what is next in order.
    void through(size_t job, std::string result) {
        progress.advance();
        waiting.emplace(job, std::move(result));
        for (auto first = waiting.begin(); first != waiting.end() && first->first == handedOn; ++handedOn) {
            print(first->second);
            first = waiting.erase(first);
        }
    }

    /// A table's line of names stands only where it is another than the table's before. Whoever has the
    /// output may not read it; meanwhile the command can be ended, as jobs that print leave no parts of
    /// files.
    void print(const std::string& result) {
        if (result.empty()) return;
        const bool hasNames = request.format == Format::csv || request.format == Format::tsv;
        const size_t end = hasNames ? result.find('\n') + 1 : 0;
        const bool again = end > 0 && result.substr(0, end) == names;
        if (end > 0) names = result.substr(0, end);
        const size_t from = again ? end : 0;
        signals.letThrough([&] {
            std::fwrite(result.data() + from, 1, result.size() - from, stdout);
            std::fflush(stdout);
        });
    }

    void removeParts(size_t job) const {
        removePart(jobs[job].table, mark(job));
        removePart(jobs[job].picture, mark(job));
    }

    void sayTally(const char* prefix) const {
        progress.say(prefix + std::to_string(jobs.size()) +
                     (jobs.size() == 1 ? " recording: " : " recordings: ") + std::to_string(tally.done) +
                     " done, " + std::to_string(tally.refused) + " refused" +
                     (tally.leftOut > 0 ? ", " + std::to_string(tally.leftOut) + " there already" : ""));
    }

    [[noreturn]] void stop(int signal) {
        for (const auto& [pid, child] : children) kill(-pid, SIGKILL);
        for (const auto& [pid, child] : children) {
            waitpid(pid, nullptr, 0);
            removeParts(child.job);
        }
        progress.finish();
        sayTally("interrupted; ");
        std::fflush(stdout);
        std::signal(signal, SIG_DFL);
        signals.restore();
        std::raise(signal);
        _exit(1);
    }

    const Request& request;
    const std::vector<Job>& jobs;
    const Course& course;
    // On machines that share a folder, two processes may have the same number.
    const std::string ownMark = std::to_string(getpid()) + '-' + std::to_string(std::random_device{}()) + '-';
    Progress progress;
    Signals signals;
    std::map<pid_t, Child> children;
    size_t next = 0;
    Tally tally;
    std::map<size_t, std::string> waiting; // results that others stand before
    size_t handedOn = 0;
    std::string names;
};

} // namespace

int work(const Request& request, const std::vector<Job>& jobs, const Course& course) {
    return Corpus(request, jobs, course).work();
}

} // namespace shell
