#include "audio.hpp"

#include "arrays.hpp"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sndfile.hh>
#include <stdexcept>
#include <strings.h>
#include <utility>
#include <vector>

namespace {

constexpr sf_count_t blockFrames = 1 << 14;

/// Whether libsndfile has found fewer bytes of samples than the header claims. Claims near the largest number
/// stand for a length that was not known when the header was written, and break no promise.
bool hasLostItsEnd(SndfileHandle& file) {
    constexpr long long unknownLength = 0x7ff00000;
    std::array<char, 1 << 14> log{};
    file.command(SFC_GET_LOG_INFO, log.data(), static_cast<int>(log.size()));
    static const std::regex claim(R"((?:data|SSND|Data Size)\s*: (\d{1,18}) \(should be (\d{1,18})\))");
    std::cmatch found;
    if (!std::regex_search(log.data(), found, claim)) return false;
    const long long claimed = std::stoll(found[1]);
    return claimed < unknownLength && claimed > std::stoll(found[2]);
}

/// Whether a header's number of frames is to be met. MP3 files tell theirs by estimate; without a header
/// there is none.
bool tellsItsLength(const SndfileHandle& file) {
    constexpr int mpeg = 0x230000;
    const int type = file.format() & SF_FORMAT_TYPEMASK;
    return type != mpeg && type != SF_FORMAT_RAW && file.frames() < SF_COUNT_MAX;
}

[[noreturn]] void refuse(const std::string& reason) {
    throw std::runtime_error(reason);
}

void refuseWhatIsNoFile(const std::string& path) {
    std::error_code unknown;
    const auto status = std::filesystem::status(path, unknown);
    if (status.type() == std::filesystem::file_type::not_found) refuse("no such file");
    if (!std::filesystem::exists(status)) refuse(unknown.message());
    if (std::filesystem::is_directory(status)) refuse("is a folder");
    if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(path, unknown) == 0)
        refuse("is empty");
}

/// Whether a file begins as those with a header do. MP3 and SDS are told by their names: their first bytes
/// may be those of samples. A pipe is not asked: what is read of it is gone.
bool hasHeader(const std::string& path) {
    static const std::set<std::string> beginnings = {"RIFF", "RIFX", "RF64", "riff", "FORM", ".snd",
                                                     "dns.", "fLaC", "OggS", "caff", "NIST", "Crea"};
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(path, unknown)) return false;
    std::array<char, 4> first{};
    std::ifstream(path, std::ios::binary).read(first.data(), first.size());
    const auto isNamed = [extension = std::filesystem::path(path).extension()](const char* name) {
        return strcasecmp(extension.c_str(), name) == 0;
    };
    return beginnings.contains({first.begin(), first.end()}) || isNamed(".mp3") || isNamed(".sds");
}

SndfileHandle opened(const std::string& path, const RawFormat& raw) {
    if (raw.rate == 0 || hasHeader(path)) return SndfileHandle(path);
    return {path, SFM_READ, SF_FORMAT_RAW | raw.format | SF_ENDIAN_LITTLE, 1, raw.rate};
}

/// Room for all samples at once, so that a growing vector does not hold them twice; not where the header
/// claims more of them than a file of that size is likely to have.
void makeRoom(std::vector<double>& samples, const std::string& path, sf_count_t frames, size_t channels) {
    constexpr size_t mostPerByte = 64;
    std::error_code unknown;
    const auto bytes = static_cast<size_t>(std::filesystem::file_size(path, unknown));
    const size_t claimed = static_cast<size_t>(std::max<sf_count_t>(0, frames)) * channels;
    if (!unknown && claimed / mostPerByte <= bytes) samples.reserve(claimed);
}

/// Everything up to the end, frame after frame. Read in blocks: the length that a damaged header claims is
/// not to be trusted.
std::vector<double> readToEnd(SndfileHandle& file, const std::string& path, const Mixer& mixer) {
    const auto channels = static_cast<size_t>(file.channels());
    std::vector<double> block;
    std::vector<double> samples;
    makeRoom(samples, path, file.frames(), mixer ? 1 : channels);
    for (sf_count_t frames = blockFrames; frames > 0;) {
        block.resize(static_cast<size_t>(blockFrames) * channels);
        frames = file.readf(block.data(), blockFrames);
        block.resize(static_cast<size_t>(frames) * channels);
        if (mixer && frames > 0) mixer(block, channels);
        samples.insert(samples.end(), block.begin(), block.end());
    }
    return samples;
}

} // namespace

RawFormat rawFormat(const std::string& text) {
    static const std::map<std::string, int> formats = {
        {"s8", SF_FORMAT_PCM_S8},  {"u8", SF_FORMAT_PCM_U8},  {"s16", SF_FORMAT_PCM_16},
        {"s24", SF_FORMAT_PCM_24}, {"s32", SF_FORMAT_PCM_32}, {"f32", SF_FORMAT_FLOAT},
        {"f64", SF_FORMAT_DOUBLE}, {"ulaw", SF_FORMAT_ULAW},  {"alaw", SF_FORMAT_ALAW}};
    const size_t colon = text.find(':');
    const std::string rate = text.substr(0, colon);
    const auto format = formats.find(colon == std::string::npos ? "" : text.substr(colon + 1));
    const bool isRate = std::regex_match(rate, std::regex("[1-9][0-9]{0,8}"));
    if (!isRate || format == formats.end())
        refuse("\"" + text +
               "\" must be RATE:FORMAT, a whole number of Hz and one of s8, u8, s16, s24, s32, "
               "f32, f64, ulaw, alaw");
    return {std::stoi(rate), format->second};
}

Recording readRecording(const std::string& path, const RawFormat& raw, const Mixer& mixer) {
    refuseWhatIsNoFile(path);
    SndfileHandle file = opened(path, raw);
    if (file.error()) {
        const bool isFile = std::filesystem::is_regular_file(path);
        refuse((isFile ? "not readable as audio: " : "not readable as audio through a pipe, as WAV is: ") +
               std::string(file.strError()));
    }
    std::vector<double> samples = readToEnd(file, path, mixer);
    const auto channels = static_cast<size_t>(mixer ? 1 : std::max(1, file.channels()));
    const size_t length = samples.size() / channels;
    if (file.error()) refuse(std::string("damaged audio: ") + file.strError());
    if (hasLostItsEnd(file) || (tellsItsLength(file) && length < static_cast<size_t>(file.frames())))
        refuse("truncated: ends before its header says, after " + std::to_string(length) + " samples");
    const auto rate = static_cast<double>(file.samplerate());
    if (channels == 1) return {{length, 1, std::move(samples)}, rate};
    return {fromRows(samples, length, channels), rate};
}

void writeWav(const std::string& path, const mxArray& samples, int rate) {
    SndfileHandle file(path, SFM_WRITE, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1, rate);
    const auto count = static_cast<sf_count_t>(samples.data.size());
    if (file.error() || file.writef(samples.data.data(), count) != count) refuse(file.strError());
}
