// libraryTrackers: the library's trackers over recordings, for `./dev accuracy`.
//   libraryTrackers                      the names of the trackers, one a line
//   libraryTrackers NAME RECORDING...    for each recording a line "# SECONDS", the processor time of the
//                                        tracker alone (the median of its calls), then a line
//                                        "SECONDS HZ" for each frame; 0 Hz where it finds no pitch
#include "audio/audio.hpp"
#include "standIn.hpp"

#include <sndfile.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr double lowest = 60; // Hz: the range that every tracker of the comparison searches
constexpr double highest = 800;
constexpr int framesPerSecond = 100;

struct Recording {
    int fs = 0;
    std::vector<int> samples; // 16 bits
};

struct Track {
    std::vector<double> seconds;
    std::vector<double> hertz;
};

struct Tracker {
    const char* name;
    Track (*track)(const Recording& recording);
};

float semitones(double hertz) {
    return static_cast<float>(69 + 12 * std::log2(hertz / 440));
}

Track byWave2pitch(const Recording& recording) {
    PTPARAM param{};
    cAudio::ptParamSet(&param, float{framesPerSecond}, recording.fs, 16, PF_ACF);
    param.minPitch = semitones(lowest);
    param.maxPitch = semitones(highest);
    const auto length = static_cast<int>(recording.samples.size());
    const int frameNum = std::max(0, cAudio::getFrameNum2(length, param.frameSize, param.overlap));
    Track track;
    track.hertz.resize(static_cast<std::size_t>(frameNum));
    ptByDpOverPfOnce<double, int>(recording.samples.data(), length, param, track.hertz.data(), nullptr,
                                  nullptr, nullptr);
    for (double& value : track.hertz)
        value = static_cast<double>(cAudio::pitch2freq(static_cast<float>(value)));
    const int step = param.frameSize - param.overlap;
    for (int i = 0; i < frameNum; ++i)
        track.seconds.push_back((i * step + (param.frameSize - 1) / 2.0) / recording.fs);
    return track;
}

Track byWave2f0(const Recording& recording) {
    VOICEPARAM param;
    param.fs = recording.fs;
    param.minFreq = lowest;
    param.maxFreq = highest;
    param.frameRate = framesPerSecond;
    const auto length = static_cast<int>(recording.samples.size());
    Track track;
    track.hertz.resize(static_cast<std::size_t>(voiceSizes(length, param).frameNum));
    wave2f0(recording.samples.data(), length, param, track.hertz.data());
    for (std::size_t i = 0; i < track.hertz.size(); ++i)
        track.seconds.push_back(static_cast<double>(i) / framesPerSecond);
    return track;
}

constexpr std::array trackers{Tracker{"wave2f0", byWave2f0}, Tracker{"wave2pitch", byWave2pitch}};

Recording readRecording(const char* path) {
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(sf_open(path, SFM_READ, &info), sf_close);
    if (!file) throw sf_strerror(nullptr);
    if (info.channels != 1) throw "libraryTrackers: a recording of one channel is needed";
    std::vector<short> samples(static_cast<std::size_t>(info.frames));
    sf_readf_short(file.get(), samples.data(), info.frames);
    return {info.samplerate, {samples.begin(), samples.end()}};
}

void report(const Tracker& tracker, const Recording& recording) {
    std::array<double, 5> times{};
    Track track;
    for (double& time : times) {
        const std::clock_t start = std::clock(); // processor time: other programs do not count
        track = tracker.track(recording);
        time = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    }
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    std::printf("# %.6f\n", times[times.size() / 2]);
    for (std::size_t i = 0; i < track.hertz.size(); ++i)
        std::printf("%.5f %.4f\n", track.seconds[i], track.hertz[i]);
}

} // namespace

int main(int argc, char** argv) try {
    standIn::setConsole([](std::string_view text) { std::cerr << text; }); // the output holds tracks alone
    if (argc < 2) {
        for (const Tracker& tracker : trackers) std::puts(tracker.name);
        return 0;
    }
    const std::string name = argv[1];
    const auto* const tracker = std::find_if(
        trackers.begin(), trackers.end(), [&](const Tracker& candidate) { return candidate.name == name; });
    if (tracker == trackers.end()) throw "libraryTrackers: no tracker of that name";
    for (int i = 2; i < argc; ++i) report(*tracker, readRecording(argv[i]));
    return 0;
} catch (const char* message) { // what the library's fatal errors throw, too
    std::fprintf(stderr, "%s\n", message);
    return 1;
}
