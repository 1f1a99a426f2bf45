// libraryTimes: how long the library itself takes for a minute of speech at 16 kHz. For each line with the
// name of an operation and the class of a host's samples it calls that operation once, on the samples that it
// takes, and answers with a line, milliseconds. border.py takes turns with it and programs of the hosts that
// do the same.
#include "audio/audio.hpp"

#include "support/speech.hpp"

#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int fs = 16000;
constexpr int frameSize = 512;
constexpr int overlap = 256;

void track(const std::vector<int>& wave, PF_TYPE pfType) {
    PTPARAM param{};
    cAudio::ptParamSet(&param, fs, 16, pfType, nullptr);
    const auto waveLen = static_cast<int>(wave.size());
    const int frameNum = cAudio::getFrameNum2(waveLen, param.frameSize, param.overlap);
    std::vector<double> pitch(static_cast<std::size_t>(frameNum));
    ptByDpOverPfOnce<double, int>(wave.data(), waveLen, param, pitch.data(), nullptr, nullptr, nullptr);
}

void trackVoice(const std::vector<double>& wave) {
    VOICEPARAM param;
    param.fs = fs;
    const auto waveLen = static_cast<int>(wave.size());
    std::vector<double> f0(static_cast<std::size_t>(voiceSizes(waveLen, param).frameNum));
    wave2f0(wave.data(), waveLen, param, f0.data());
}

void detect(const std::vector<int>& wave) {
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    int segNum = 0;
    const SegmentArray segments(
        cAudio::epdByVolHod(wave.data(), static_cast<int>(wave.size()), fs, param, &segNum));
}

} // namespace

int main() {
    const std::vector<int> wave = speech("reading16k.wav");
    const auto waveLen = static_cast<int>(wave.size());
    std::vector<double> unit(wave.begin(), wave.end());
    for (double& sample : unit) sample /= 32768;
    const auto frameNum = static_cast<std::size_t>(cAudio::getFrameNum2(waveLen, frameSize, overlap));

    const std::map<std::string, std::function<void()>> operations = {
        {"wave2pitch-acf", [&] { track(wave, PF_ACF); }},
        {"wave2pitch-amdf", [&] { track(wave, PF_AMDF); }},
        {"wave2f0", [&] { trackVoice(unit); }},
        {"endPoints-volumeHod", [&] { detect(wave); }},
        {"wave2volume",
         [&] {
             std::vector<int> volume(frameNum);
             wave2volume(wave.data(), waveLen, frameSize, overlap, volume.data(), 1);
         }},
        {"absSpectrogram",
         [&] {
             std::vector<double> magnitude(frameNum * (frameSize / 2 + 1));
             cAudio::absSpectrogram(unit.data(), waveLen, frameSize, overlap, frameSize, 1, magnitude.data());
         }},
    };
    for (std::string name, hosts; std::cin >> name >> hosts;) {
        const std::function<void()>& operation = operations.at(name);
        const auto start = std::chrono::steady_clock::now();
        operation();
        const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
        std::cout << time.count() << std::endl; // border.py waits for it
    }
}
