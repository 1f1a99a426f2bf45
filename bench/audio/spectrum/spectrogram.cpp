// Spectrogram of a minute at 16 kHz; "timesRealTime" is seconds of sound per second of work.
#include "audio/audio.hpp"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

void absSpectrogram(benchmark::State& state) {
    constexpr int fs = 16000, seconds = 60, frameSize = 512, overlap = 256;
    std::vector<double> wave(size_t{fs} * seconds);
    for (size_t i = 0; i < wave.size(); ++i) wave[i] = std::sin(0.37 * double(i));
    const auto waveLen = static_cast<int>(wave.size());
    const auto paddedSize = static_cast<int>(state.range(0));
    const auto frameNum = static_cast<size_t>(cAudio::getFrameNum2(waveLen, frameSize, overlap));
    std::vector<double> out(frameNum * (static_cast<size_t>(paddedSize) / 2 + 1));
    for (auto _ : state) {
        cAudio::absSpectrogram(wave.data(), waveLen, frameSize, overlap, paddedSize, 1, out.data());
        benchmark::ClobberMemory();
    }
    using benchmark::Counter;
    state.counters["timesRealTime"] = Counter(seconds, Counter::kIsIterationInvariantRate);
}
BENCHMARK(absSpectrogram)->ArgName("paddedSize")->Arg(512)->Arg(1024)->Unit(benchmark::kMillisecond);

} // namespace
