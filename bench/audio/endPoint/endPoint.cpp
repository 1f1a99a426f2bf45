// Frame features and the volume-and-ASHOD detector on one minute of speech, in times real time.
#include "audio/audio.hpp"

#include <benchmark/benchmark.h>
#include <sndfile.h>

#include <memory>
#include <string>
#include <vector>

namespace {

/// One minute of 16-bit samples: a recording over and over, each sample at its nearest place in time.
std::vector<int> minuteOfSpeech(int fs) {
    const std::string path =
        std::string(WAVEPITCH_EXAMPLES) + (fs == 8000 ? "/speech8k.wav" : "/reading16k.wav");
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(sf_open(path.c_str(), SFM_READ, &info), sf_close);
    if (!file) return {};
    std::vector<short> recording(static_cast<std::size_t>(info.frames));
    sf_readf_short(file.get(), recording.data(), info.frames);
    std::vector<int> minute(60 * static_cast<std::size_t>(fs));
    for (std::size_t i = 0; i < minute.size(); ++i)
        minute[i] = recording[i * static_cast<std::size_t>(info.samplerate) / static_cast<std::size_t>(fs) %
                              recording.size()];
    return minute;
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
