#include "jobProcess.hpp"

#include "drawing.hpp"
#include "file.hpp"
#include "progress.hpp"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <sys/mman.h>
#include <unistd.h>

namespace shell {

namespace {

Answer::File scratchFile() {
    const int descriptor = memfd_create("wavepitch", 0);
    Answer::File file(descriptor < 0 ? nullptr : fdopen(descriptor, "w+"), std::fclose);
    if (!file) throw std::runtime_error(std::string("no scratch file: ") + std::strerror(errno));
    return file;
}

void handOver(const std::string& text, std::FILE* result) {
    if (std::fputs(text.c_str(), result) < 0 || std::fflush(result) != 0)
        throw std::runtime_error(std::string("scratch file: ") + std::strerror(errno));
}

void writePicture(const Request& request, const Job& job, const Analysis& analysis, const std::string& mark,
                  std::FILE* result) {
    std::string title = request.function->name;
    if (!job.recording.empty())
        title += " (" + std::filesystem::path(job.recording).filename().string() + ")";
    const auto drawTo = [&](const std::string& path) { draw(request, analysis, title, path); };
    if (job.picture == standardOutput) // that of this process is its report
        return drawTo("/dev/fd/" + std::to_string(fileno(result)));
    writeWhole(job.picture, mark, drawTo);
}

void doJob(const Request& request, const Job& job, const std::string& name, const std::string& mark,
           std::FILE* result) {
    const Analysis analysis = analyse(request, job.recording);
    if (request.format == Format::wav)
        writeWhole(job.table, mark, [&](const std::string& path) { writeSound(request, analysis, path); });
    else if (job.table.empty())
        handOver(textOf(request, analysis, name), result);
    else
        writeWhole(job.table, mark,
                   [&](const std::string& path) { writeContents(path, textOf(request, analysis, "")); });
    if (!job.picture.empty()) writePicture(request, job, analysis, mark, result);
}

} // namespace

Answer emptyAnswer() {
    return {scratchFile(), scratchFile()};
}

std::string contentsOf(const Answer::File& file) {
    std::string text;
    char block[1 << 14];
    std::rewind(file.get());
    for (size_t count; (count = std::fread(block, 1, sizeof block, file.get())) > 0;)
        text.append(block, count);
    return text;
}

int runJob(const Request& request, const Job& job, const std::string& name, const std::string& mark,
           const Answer& answer) {
    dup2(fileno(answer.report.get()), STDOUT_FILENO);
    dup2(fileno(answer.report.get()), STDERR_FILENO);
    int status = 1;
    try {
        doJob(request, job, name, mark, answer.result.get());
        status = 0;
    } catch (const std::bad_alloc&) {
        std::puts("there is not enough memory");
    } catch (const std::exception& error) {
        std::puts(inOneLine(error.what()).c_str());
    }
    std::fflush(nullptr);
    return status;
}

} // namespace shell
