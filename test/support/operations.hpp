// What the library itself computes of a recording: operations of every room.
#pragma once

#include "support/recording.hpp"
#include "support/vectors.hpp"

#include <functional>

/// Receives an output as CALL.OUTPUT, where calls.json has it by its call's name and its number there.
using GiveOutput = std::function<void(const std::string& output, const Doubles& values)>;

void runOperations(const Recording& recording, const GiveOutput& give);
