#include "support/recording.hpp"

#include <sndfile.hh>
#include <stdexcept>

Recording readRecording(const std::string& name) {
    SndfileHandle file(WAVEPITCH_EXAMPLES "/" + name);
    if (file.error()) throw std::runtime_error("no recording " + name);
    std::vector<short> samples(static_cast<std::size_t>(file.frames()));
    file.readf(samples.data(), file.frames());
    return {file.samplerate(), {samples.begin(), samples.end()}};
}
