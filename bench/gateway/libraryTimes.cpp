// libraryTimes: how long the library itself takes for a minute of speech at 16 kHz: a line "NAME
// MILLISECONDS" for each operation, the median of its calls. border.m asks for it and times the same calls
// from the host.
#include "audio/audio.hpp"

#include "support/speech.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

constexpr int fs = 16000;
constexpr int frameSize = 512;
constexpr int overlap = 256;

template <typename Call>
void report(const char* name, int calls, Call call) {
    std::vector<double> times;
    for (int i = 0; i < calls; ++i) {
        const auto start = std::chrono::steady_clock::now();
        call();
        const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
        times.push_back(time.count());
    }
    std::nth_element(times.begin(), times.begin() + calls / 2, times.end());
    std::printf("%s %.4f\n", name, times[static_cast<std::size_t>(calls / 2)]);
}

void track(const std::vector<int>& wave, PF_TYPE pfType) {
    PTPARAM param{};
    cAudio::ptParamSet(&param, fs, 16, pfType, nullptr);
    const auto waveLen = static_cast<int>(wave.size());
    const int frameNum = cAudio::getFrameNum2(waveLen, param.frameSize, param.overlap);
    std::vector<double> pitch(static_cast<std::size_t>(frameNum));
    ptByDpOverPfOnce<double, int>(wave.data(), waveLen, param, pitch.data(), nullptr, nullptr, nullptr);
}

} // namespace

int main() {
    const std::vector<int> wave = speech("reading16k.wav");
    const auto waveLen = static_cast<int>(wave.size());
    std::vector<double> unit(wave.begin(), wave.end());
    for (double& sample : unit) sample /= 32768;
    const int frameNum = cAudio::getFrameNum2(waveLen, frameSize, overlap);
    std::vector<int> values(static_cast<std::size_t>(frameNum));

    report("wave2pitch-acf", 5, [&] { track(wave, PF_ACF); });
    report("wave2pitch-amdf", 9, [&] { track(wave, PF_AMDF); });
    report("wave2f0", 5, [&] {
        VOICEPARAM param;
        param.fs = fs;
        std::vector<double> f0(static_cast<std::size_t>(voiceSizes(waveLen, param).frameNum));
        wave2f0(unit.data(), waveLen, param, f0.data());
    });
    report("endPoints-volumeHod", 31, [&] {
        EPDPARAM param;
        cAudio::epdParamSet(fs, param);
        int segNum = 0;
        const SegmentArray segments(cAudio::epdByVolHod(wave.data(), waveLen, fs, param, &segNum));
    });
    report("wave2volume", 31,
           [&] { wave2volume(wave.data(), waveLen, frameSize, overlap, values.data(), 1); });
    report("absSpectrogram", 15, [&] {
        std::vector<double> magnitude(static_cast<std::size_t>(frameNum) * (frameSize / 2 + 1));
        cAudio::absSpectrogram(unit.data(), waveLen, frameSize, overlap, frameSize, 1, magnitude.data());
    });
}
