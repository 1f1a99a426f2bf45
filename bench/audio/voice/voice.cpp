// The tracker of voices on two minutes of voices, in times real time, on each instruction set; and the time
// of each of its stages as a share of the whole.
#include "audio/audio.hpp"
#include "audio/voice/refinement.hpp"
#include "support/speech.hpp"
#include "utility/instructionSet.hpp"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr int seconds = 60;

struct Task {
    std::vector<double> wave;
    VOICEPARAM param;
    std::vector<double> f0;

    explicit Task(int fs) {
        param.fs = fs;
        const std::vector<int> samples = speech(fs == 8000 ? "speech8k.wav" : "reading16k.wav", seconds);
        wave.assign(samples.begin(), samples.end());
        f0.resize(static_cast<size_t>(voiceSizes(length(), param).frameNum));
    }

    int length() const { return static_cast<int>(wave.size()); }
    void track() { wave2f0(wave.data(), length(), param, f0.data()); }
};

/// The stages one by one, as the tracker chains them, with the time that each takes.
struct Stages {
    double level = 0, band = 0, character = 0, candidates = 0, path = 0, refinement = 0;

    static auto timed(double& time, auto stage) {
        const auto start = std::chrono::steady_clock::now();
        auto result = stage();
        time += std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        return result;
    }

    void run(Task& task) {
        using namespace wavepitch::voice;
        const Layout layout(task.length(), task.param);
        const auto source = timed(level, [&] { return Source(task.wave.data(), task.wave.size()); });
        auto signal = timed(band, [&] {
            return Band(BandFilter(source, layout, task.param.minFreq), layout, task.wave.size() * 2);
        });
        const auto heard = timed(character, [&] { return characterOf(signal, layout, task.param); });
        const auto found =
            timed(candidates, [&] { return findCandidates(signal, layout, heard, task.param, nullptr); });
        const auto chosen = timed(path, [&] { return bestPath(found, layout, heard, task.param); });
        timed(refinement, [&] {
            refine(chosen, found, signal, layout, {task.f0.data(), nullptr, nullptr, nullptr});
            return 0;
        });
    }
};

void voice(benchmark::State& state, const char* set) {
    ::setenv("WAVEPITCH_KERNEL", set, 1);
    Task task(static_cast<int>(state.range(0)));
    for (auto _ : state) task.track();
    state.counters["timesRealTime"] =
        benchmark::Counter(seconds * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    Stages stages;
    constexpr int runs = 20;
    for (int i = 0; i < runs; ++i) stages.run(task);
    ::unsetenv("WAVEPITCH_KERNEL");
    // Microseconds for each second of sound.
    const auto share = [&](const char* name, double time) {
        state.counters[name] = 1e6 * time / runs / seconds;
    };
    share("us/s:1.level", stages.level);
    share("us/s:2.band", stages.band);
    share("us/s:3.character", stages.character);
    share("us/s:4.candidates", stages.candidates);
    share("us/s:5.path", stages.path);
    share("us/s:6.refinement", stages.refinement);
}

BENCHMARK_CAPTURE(voice, portable, "portable")
    ->ArgName("fs")
    ->Arg(8000)
    ->Arg(16000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(voice, avx2, "avx2")->ArgName("fs")->Arg(8000)->Arg(16000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(voice, avx512, "avx512")
    ->ArgName("fs")
    ->Arg(8000)
    ->Arg(16000)
    ->Unit(benchmark::kMillisecond);

} // namespace
