#include "module.hpp"

#include <dlfcn.h>
#include <filesystem>
#include <stdexcept>

Module loadModule(const std::string& path) {
    // The loader searches its own directories for a name without a slash. A module is never unloaded: what it
    // throws, its types and its text, outlives the call.
    const std::filesystem::path file = std::filesystem::absolute(path);
    void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle) throw std::runtime_error(path + ": cannot be loaded as a module: " + dlerror());
    void* entry = dlsym(handle, "mexFunction");
    if (!entry) throw std::runtime_error(path + ": has no mexFunction, so it is no module");
    return {file.stem(), reinterpret_cast<standIn::EntryPoint>(entry)};
}
