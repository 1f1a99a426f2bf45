#include "file.hpp"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <stdexcept>

namespace shell {

namespace {

namespace fs = std::filesystem;

/// Short, whatever the file's own name is, and hidden.
fs::path partOf(const fs::path& path, const std::string& mark) {
    return path.parent_path() / (".wavepitch-" + mark + ".part");
}

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
    throw std::runtime_error(path + ": cannot be written: " + reason);
}

/// The file itself that a link leads to. Some lead to none: those that stand for an open file without a name.
std::string behindLinks(const std::string& name, std::error_code& error) {
    std::error_code unknown;
    const bool isLink = fs::is_symlink(name, unknown);
    const bool leadsElsewhere = fs::exists(name, unknown) && !fs::is_regular_file(name, unknown);
    return isLink && !leadsElsewhere ? fs::canonical(name, error).string() : name;
}

} // namespace

void writeWhole(const std::string& name, const std::string& mark,
                const std::function<void(const std::string& temporary)>& write) {
    std::error_code error;
    const std::string path = behindLinks(name, error);
    if (error) refuse(name, error.message());
    if (fs::exists(path, error) && !fs::is_regular_file(path, error)) {
        if (fs::is_directory(path, error)) refuse(path, "is a folder");
        return write(path);
    }
    if (fs::path(path).has_parent_path()) fs::create_directories(fs::path(path).parent_path(), error);
    if (error) refuse(path, error.message());
    const fs::path part = partOf(path, mark);
    try {
        write(part);
    } catch (const std::exception& failure) {
        fs::remove(part, error);
        refuse(path, failure.what());
    }
    fs::rename(part, path, error);
    if (!error) return;
    const std::string reason = error.message();
    fs::remove(part, error);
    refuse(path, reason);
}

void removePart(const std::string& name, const std::string& mark) {
    std::error_code gone;
    if (!name.empty()) fs::remove(partOf(behindLinks(name, gone), mark), gone);
}

void writeContents(const std::string& path, const std::string& contents) {
    const auto refuseNow = [] { throw std::runtime_error(std::strerror(errno)); };
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    if (!file || std::fwrite(contents.data(), 1, contents.size(), file.get()) != contents.size()) refuseNow();
    if (std::fclose(file.release()) != 0) refuseNow();
}

} // namespace shell
