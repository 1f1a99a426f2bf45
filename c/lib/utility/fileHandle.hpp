// A C file stream that closes itself on every way out.
#pragma once

#include <cstdio>
#include <memory>

namespace wavepitch::utility {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace wavepitch::utility

using FileHandle = std::unique_ptr<std::FILE, wavepitch::utility::FileCloser>;
