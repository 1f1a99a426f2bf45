// The call of a module's entry point, whatever leaves it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "standIn.hpp"

struct Module {
    std::string name; // what mexFunctionName answers
    standIn::EntryPoint entry;
};

/// Calls the module as standIn::call does, and turns every exception that leaves it, its own fatal errors
/// included, into a std::runtime_error with the text for the user. An output that was asked for and not set
/// is an error too.
std::vector<std::unique_ptr<mxArray>> callModule(const Module& module, int outputCount,
                                                 const std::vector<mxArray>& inputs);
