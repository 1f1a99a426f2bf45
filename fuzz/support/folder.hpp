// Files that a target writes and reads, in a folder that goes with it.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

class Folder {
public:
    Folder() : path(std::filesystem::temp_directory_path() / ("wavepitch-fuzz-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(path);
    }
    ~Folder() {
        std::error_code whatever;
        std::filesystem::remove_all(path, whatever);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string file(const std::string& name) const { return path / name; }

private:
    std::filesystem::path path;
};

/// That of the target.
inline const Folder& folder() {
    static const Folder own;
    return own;
}

/// The name of a file that holds some text.
inline std::string written(const std::string& name, const std::string& content) {
    const std::string path = folder().file(name);
    std::ofstream(path, std::ios::binary) << content;
    return path;
}

inline std::string readBack(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
