// A module out of a file.
#pragma once

#include <string>

#include "call.hpp"

/// Loads a module for the rest of the process, under the file's stem as its name. A file that is none is a
/// std::runtime_error.
Module loadModule(const std::string& path);
