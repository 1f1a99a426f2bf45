#include "utility/file/listing.hpp"

#include "utility/string/replace.hpp"

#include <dirent.h>

#include <string_view>

#include "mex.h"

void fileListRecursive(std::vector<std::string>& /*list*/, char* directory, const char* /*pattern*/) {
    strRep(directory, '\\', '/');
    mexPrintf("No files in current directory!\n");
}

int taone(const dirent* entry) {
    if (!entry) return 0;
    const std::string_view name = entry->d_name;
    return name == "." || name == ".." ? 0 : 1;
}
