#include "call.hpp"

#include <stdexcept>

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
