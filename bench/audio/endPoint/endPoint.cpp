// Frame features and the volume-and-ASHOD detector on one minute of speech, in times real time.
#include "audio/audio.hpp"

#include "support/speech.hpp"

#include <benchmark/benchmark.h>

#include <vector>

namespace {

std::vector<int> minuteOfSpeech(int fs) {
    if (fs == 8000) return speech("speech8k.wav");
    const std::vector<int> minute = speech("reading16k.wav");
    if (fs == 16000) return minute;
    std::vector<int> resampled(60 * static_cast<std::size_t>(fs));
    cAudio::waveResample(minute.data(), static_cast<int>(minute.size()), 16000, fs, resampled.data(),
                         static_cast<int>(resampled.size()));
    return resampled;
}

/// Times operation(wave, waveLen, parameters, frame values) on a minute at the rate of the benchmark.
template <typename Operation>
void onAMinute(benchmark::State& state, Operation operation) {
    const auto fs = static_cast<int>(state.range(0));
    const std::vector<int> wave = minuteOfSpeech(fs);
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    std::vector<int> values(wave.size() / static_cast<std::size_t>(param.frameSize));
    for (auto _ : state) {
        operation(wave.data(), static_cast<int>(wave.size()), param, values.data());
        benchmark::DoNotOptimize(values.data());
    }
    state.counters["timesRealTime"] =
        benchmark::Counter(60.0 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void volume(benchmark::State& state) {
    onAMinute(state, [](const int* wave, int waveLen, const EPDPARAM& p, int* values) {
        wave2volume(wave, waveLen, p.frameSize, p.overlap, values, 1);
    });
}

void ashod(benchmark::State& state) {
    onAMinute(state, [](const int* wave, int waveLen, const EPDPARAM& p, int* values) {
        cAudio::wave2ashod(wave, waveLen, p.frameSize, p.overlap, values, 4);
    });
}

void zeroCrossings(benchmark::State& state) {
    onAMinute(state, [](const int* wave, int waveLen, const EPDPARAM& p, int* values) {
        cAudio::wave2zcr(wave, waveLen, p.frameSize, p.overlap, values);
    });
}

void epdByVolHod(benchmark::State& state) {
    const auto fs = static_cast<int>(state.range(0));
    onAMinute(state, [fs](const int* wave, int waveLen, const EPDPARAM& p, int* values) {
        const SegmentArray segments(cAudio::epdByVolHod(wave, waveLen, fs, p, values));
    });
}

void rates(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("fs")->Arg(8000)->Arg(16000)->Arg(44100)->Unit(benchmark::kMillisecond);
}

BENCHMARK(volume)->Apply(rates);
BENCHMARK(ashod)->Apply(rates);
BENCHMARK(zeroCrossings)->Apply(rates);
BENCHMARK(epdByVolHod)->Apply(rates);

} // namespace
