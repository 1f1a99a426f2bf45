#include "support/recording.hpp"

#include <memory>
#include <sndfile.h>
#include <stdexcept>

Recording readRecording(const std::string& name) {
    SF_INFO info{};
    const std::string path = std::string(WAVEPITCH_EXAMPLES) + "/" + name;
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(sf_open(path.c_str(), SFM_READ, &info), sf_close);
    if (!file) throw std::runtime_error("no recording " + path);
    std::vector<short> samples(static_cast<std::size_t>(info.frames));
    sf_readf_short(file.get(), samples.data(), info.frames);
    return {info.samplerate, {samples.begin(), samples.end()}};
}
