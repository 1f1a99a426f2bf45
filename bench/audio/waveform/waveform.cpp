// Filter and resampling of ten seconds; "timesRealTime" is seconds of sound per second of work.
#include "audio/audio.hpp"

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

constexpr int seconds = 10;

benchmark::Counter timesRealTime() {
    return {seconds, benchmark::Counter::kIsIterationInvariantRate};
}

void filter(benchmark::State& state) {
    constexpr int fs = 16000;
    const auto order = static_cast<size_t>(state.range(0));
    std::vector<double> b(order + 1, 0.1), a(order + 1, 0.5 / double(order)), wave(size_t{fs} * seconds);
    for (size_t i = 0; i < wave.size(); ++i) wave[i] = std::sin(0.37 * double(i));
    const auto length = static_cast<int>(order) + 1;
    for (auto _ : state) {
        cAudio::filter(b.data(), length, a.data(), length, wave.data(), static_cast<int>(wave.size()));
        benchmark::ClobberMemory();
    }
    state.counters["timesRealTime"] = timesRealTime();
}
BENCHMARK(filter)->ArgName("order")->Arg(2)->Arg(16)->Unit(benchmark::kMillisecond);

void waveResample(benchmark::State& state) {
    constexpr int oldFs = 44100, newFs = 8000;
    std::vector<int> wave(size_t{oldFs} * seconds), out(size_t{newFs} * seconds);
    for (size_t i = 0; i < wave.size(); ++i) wave[i] = static_cast<int>(20000 * std::sin(0.01 * double(i)));
    for (auto _ : state) {
        cAudio::waveResample(wave.data(), static_cast<int>(wave.size()), oldFs, newFs, out.data(),
                             static_cast<int>(out.size()));
        benchmark::ClobberMemory();
    }
    state.counters["timesRealTime"] = timesRealTime();
}
BENCHMARK(waveResample)->Unit(benchmark::kMillisecond);

} // namespace
