#include "jobs.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iostream>
#include <map>
#include <set>
#include <stdexcept>

namespace shell {

namespace {

namespace fs = std::filesystem;

bool soundsLikeAudio(const fs::path& path, bool raw) {
    static const std::set<std::string> extensions = {".wav", ".flac", ".ogg",  ".oga",  ".opus", ".mp3",
                                                     ".aif", ".aiff", ".aifc", ".au",   ".snd",  ".caf",
                                                     ".w64", ".rf64", ".sph",  ".nist", ".sds",  ".voc"};
    std::string extension = path.extension();
    for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return extensions.contains(extension) || (raw && (extension == ".raw" || extension == ".pcm"));
}

/// The recordings in a folder, at any depth, and a job with a refusal for each folder that cannot be read.
void collect(const fs::path& folder, bool raw, std::vector<Job>& jobs) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        std::error_code unknown; // of links to nowhere
        if (entry->is_directory(unknown) && !entry->is_symlink(unknown))
            collect(entry->path(), raw, jobs);
        else if (entry->is_regular_file(unknown) && soundsLikeAudio(entry->path(), raw))
            jobs.push_back({entry->path(), "", "", ""});
    }
    if (error) jobs.push_back({folder, "", "", error.message()});
}

std::vector<Job> jobsOfFolder(const std::string& folder, bool raw) {
    std::vector<Job> jobs;
    collect(folder, raw, jobs);
    if (jobs.empty()) return {{folder, "", "", "holds no recordings"}};
    std::sort(jobs.begin(), jobs.end(), [](const Job& a, const Job& b) { return a.recording < b.recording; });
    return jobs;
}

std::vector<Job> jobsOfName(const std::string& name, const Places& places) {
    std::error_code unknown;
    if (!fs::is_directory(name, unknown)) return {{name, "", "", ""}};
    if (!places.recursive) return {{name, "", "", "is a folder: -r takes the recordings in it"}};
    return jobsOfFolder(name, places.raw);
}

std::vector<std::string> namesOnInput(bool endsWithZero) {
    std::vector<std::string> names;
    std::string name;
    while (std::getline(std::cin, name, endsWithZero ? '\0' : '\n')) {
        if (name.find('\0') != std::string::npos)
            throw std::runtime_error(
                "standard input (-) must be names of recordings, one a line, or with -0 a "
                "zero byte behind each; /dev/stdin is for a recording itself");
        if (!name.empty()) names.push_back(name);
    }
    return names;
}

/// A path below a folder: without its root, and without steps up and out.
fs::path mirrored(const std::string& folder, const std::string& recording) {
    fs::path result = folder;
    for (const fs::path& part : fs::path(recording).lexically_normal().relative_path())
        if (part != "..") result /= part;
    return result;
}

void place(Job& job, const Places& places) {
    job.table = places.file;
    job.picture = places.picture;
    if (places.folder.empty()) return;
    fs::path path = mirrored(places.folder, job.recording);
    job.table = path.replace_extension(places.extension);
    if (places.pictures) job.picture = path.replace_extension(".png");
}

/// A file's name for comparisons: without links and steps, from the root.
std::string plainName(const std::string& file) {
    std::error_code unknown;
    const fs::path name = fs::weakly_canonical(fs::absolute(file, unknown), unknown);
    return unknown ? file : name.string();
}

/// Devices and pipes may be written by several, and keep nothing.
bool isFileToKeep(const std::string& file) {
    std::error_code unknown;
    return !file.empty() && (fs::is_regular_file(file, unknown) || !fs::exists(file, unknown));
}

/// What two jobs would write, or a job twice, or over what is read.
void refuseSameFiles(std::vector<Job>& jobs, const std::vector<std::string>& inputs) {
    std::set<std::string> recordings;
    std::set<std::string> otherInputs;
    for (const Job& job : jobs) recordings.insert(plainName(job.recording));
    for (const std::string& input : inputs) otherInputs.insert(plainName(input));
    std::map<std::string, const Job*> writers;
    for (Job& job : jobs) {
        if (!job.refusal.empty()) continue;
        for (const std::string& file : {job.table, job.picture}) {
            std::error_code unknown;
            if (!isFileToKeep(file)) continue;
            const std::string name = plainName(file);
            const auto [writer, isFirst] = writers.emplace(name, &job);
            if (writer->second != &job)
                job.refusal = "would write " + file + ", as " + writer->second->recording + " does";
            else if (!isFirst)
                job.refusal = "would write " + file + " twice, as table and as picture";
            if (otherInputs.contains(name)) job.refusal = "would write over the input " + file;
            if (recordings.contains(name)) job.refusal = "would write over the recording " + file;
            if (fs::equivalent(file, job.recording, unknown)) job.refusal = "would be overwritten";
        }
    }
}

bool isNewer(const std::string& result, const std::string& recording) {
    std::error_code missing;
    const auto written = fs::last_write_time(result, missing);
    return !missing && written > fs::last_write_time(recording, missing) && !missing;
}

} // namespace

std::vector<Job> jobsOf(const std::vector<std::string>& words, const Places& places) {
    std::vector<std::string> names;
    for (const std::string& word : words) {
        const auto more = word == "-" ? namesOnInput(places.endsWithZero) : std::vector<std::string>{word};
        names.insert(names.end(), more.begin(), more.end());
    }
    std::vector<Job> jobs;
    for (const std::string& name : names) {
        const auto more = jobsOfName(name, places);
        jobs.insert(jobs.end(), more.begin(), more.end());
    }
    if (words.empty()) jobs.emplace_back();
    for (Job& job : jobs) place(job, places);
    refuseSameFiles(jobs, places.inputs);
    return jobs;
}

bool isDone(const Job& job) {
    return isNewer(job.table, job.recording) && (job.picture.empty() || isNewer(job.picture, job.recording));
}

} // namespace shell
