// hashes WAVE...: a line "WAVE CALL.OUTPUT HASH", on the error stream, for each output of the operations on
// recordings of examples/. Four threads compute each, and all tables that differ come out.
#include "support/operations.hpp"

#include <bit>
#include <cmath>
#include <cstdint>
#include <future>
#include <iostream>
#include <set>

namespace {

/// FNV-1a over the numbers' bits (G. Fowler, L. C. Noll, P. Vo), whatever their order in memory.
std::uint64_t hashOf(const Doubles& values) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const double value : values) hash = (hash ^ std::bit_cast<std::uint64_t>(value)) * 0x100000001b3;
    return hash;
}

/// Spectra without their last bits, in which sines and cosines of different C libraries differ.
Doubles rounded(Doubles values) {
    for (double& value : values) value = std::round(value * 4096);
    return values;
}

std::string tableOf(const std::string& name) {
    std::ostringstream table;
    runOperations(readRecording(name), [&](const std::string& output, const Doubles& values) {
        const std::uint64_t hash = hashOf(output == "absSpectrogram.1" ? rounded(values) : values);
        table << name << ' ' << output << ' ' << std::hex << hash << '\n';
    });
    return table.str();
}

} // namespace

int main(int count, char** names) {
    for (int i = 1; i < count; ++i) {
        std::vector<std::future<std::string>> tables(4);
        for (auto& table : tables) table = std::async(std::launch::async, tableOf, names[i]);
        std::set<std::string> different;
        for (auto& table : tables) different.insert(table.get());
        for (const std::string& table : different) std::cerr << table;
    }
}
