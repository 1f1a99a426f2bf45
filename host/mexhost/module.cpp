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

std::vector<std::unique_ptr<mxArray>> callModule(const Module& module, int outputCount,
                                                 const std::vector<mxArray>& inputs) {
    standIn::setFunctionName(module.name);
    std::vector<std::unique_ptr<mxArray>> outputs;
    try {
        outputs = standIn::call(module.entry, outputCount, inputs);
    } catch (const standIn::HostError&) {
        throw;
    } catch (const char* message) {
        throw std::runtime_error(module.name + ": " + message);
    } catch (const std::exception& error) {
        throw std::runtime_error(module.name + ": unexpected exception: " + error.what());
    } catch (...) {
        throw std::runtime_error(module.name + ": unexpected exception of unknown type");
    }
    for (int i = 0; i < outputCount; ++i)
        if (!outputs[static_cast<size_t>(i)])
            throw std::runtime_error(module.name + ": output " + std::to_string(i + 1) + " was not set");
    return outputs;
}
