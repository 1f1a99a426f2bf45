#include "support/speech.hpp"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

std::vector<int> speech(const std::string& name, int seconds) {
    constexpr std::size_t headerSize = 44;
    constexpr std::size_t rateAt = 24;
    std::ifstream file(std::string(WAVEPITCH_EXAMPLES) + "/" + name, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    if (bytes.size() < headerSize + sizeof(std::int16_t))
        throw std::runtime_error("speech: no samples in " + name);
    std::int32_t rate = 0;
    std::memcpy(&rate, bytes.data() + rateAt, sizeof rate);
    std::vector<std::int16_t> samples((bytes.size() - headerSize) / sizeof(std::int16_t));
    std::memcpy(samples.data(), bytes.data() + headerSize, samples.size() * sizeof(std::int16_t));
    std::vector<int> minute(static_cast<std::size_t>(rate) * static_cast<std::size_t>(seconds));
    for (std::size_t i = 0; i < minute.size(); ++i) minute[i] = samples[i % samples.size()];
    return minute;
}
