// The tracker of voices on the recordings of examples/voices, one behind the other: in times real time on
// each instruction set, and the time of each stage in microseconds for each second of sound. "refiltered" is
// how long recordings fare, of which nothing is kept.
#include "audio/audio.hpp"
#include "audio/voice/refinement.hpp"
#include "audio/voice/track.hpp"
#include "support/kernelVersion.hpp"

#include <benchmark/benchmark.h>

#include <ctime>
#include <filesystem>
#include <set>
#include <sndfile.hh>
#include <string>
#include <vector>

namespace {

using namespace wavepitch::voice;

constexpr std::size_t all = std::size_t{1} << 24U;

/// All voices at 16 kHz.
std::vector<double> voices() {
    std::vector<double> wave;
    std::set<std::filesystem::path> files; // in an order that is the same everywhere
    for (const auto& entry : std::filesystem::directory_iterator(WAVEPITCH_EXAMPLES "/voices"))
        if (entry.path().extension() == ".flac") files.insert(entry.path());
    for (const auto& path : files) {
        SndfileHandle file(path.string());
        const std::size_t before = wave.size();
        wave.resize(before + static_cast<std::size_t>(file.frames()));
        file.readf(wave.data() + before, file.frames());
    }
    return wave;
}

std::vector<double> halfTheRate(const std::vector<double>& wave) {
    const Source source(wave.data(), wave.size());
    const auto read = [&](std::int64_t first, std::size_t step, std::size_t num, float* out) {
        source.read(first, step, num, out);
    };
    const std::size_t num = wave.size() / 2;
    Filter filter(lowPass(0.235, 64), 2);
    const float* half = filter.run(read, 0, num);
    return {half, half + num};
}

struct Task {
    std::vector<double> wave = voices();
    VOICEPARAM param;
    std::vector<double> f0;

    explicit Task(int fs) {
        param.fs = fs;
        if (fs == 8000) wave = halfTheRate(wave);
        f0.resize(static_cast<std::size_t>(voiceSizes(length(), param).frameNum));
    }

    int length() const { return static_cast<int>(wave.size()); }
    double seconds() const { return static_cast<double>(length()) / param.fs; }

    void run(std::size_t kept) {
        const Layout layout(length(), param);
        track(Source(wave.data(), wave.size()), layout, param, kept, {f0.data(), nullptr, nullptr, nullptr});
    }
};

/// The stages one by one, as the tracker chains them, with the time that each takes.
struct Stages {
    double level = 0, band = 0, character = 0, candidates = 0, path = 0, refinement = 0;

    static auto timed(double& time, auto stage) {
        const std::clock_t start = std::clock(); // processor time: other programs do not count
        auto result = stage();
        time += static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        return result;
    }

    void run(Task& task) {
        const Layout layout(task.length(), task.param);
        const auto source = timed(level, [&] { return Source(task.wave.data(), task.wave.size()); });
        auto signal =
            timed(band, [&] { return Band(BandFilter(source, layout, task.param.minFreq), layout, all); });
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

void timesRealTime(benchmark::State& state, const Task& task) {
    state.counters["timesRealTime"] = benchmark::Counter(
        task.seconds() * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void voice(benchmark::State& state, const char* set) {
    const KernelVersion version(set);
    Task task(static_cast<int>(state.range(0)));
    for (auto _ : state) task.run(all);
    timesRealTime(state, task);
    constexpr int runs = 5;
    Stages stages;
    for (int i = 0; i < runs; ++i) stages.run(task);
    const auto show = [&](const char* name, double time) {
        state.counters[name] = 1e6 * time / (runs * task.seconds());
    };
    show("us:1.level", stages.level);
    show("us:2.band", stages.band);
    show("us:3.character", stages.character);
    show("us:4.candidates", stages.candidates);
    show("us:5.path", stages.path);
    show("us:6.refinement", stages.refinement);
}

void refiltered(benchmark::State& state) {
    Task task(static_cast<int>(state.range(0)));
    for (auto _ : state) task.run(0);
    timesRealTime(state, task);
}

void rates(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("fs")->Arg(8000)->Arg(16000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(voice, portable, "portable")->Apply(rates);
BENCHMARK_CAPTURE(voice, avx2, "avx2")->Apply(rates);
BENCHMARK_CAPTURE(voice, avx512, "avx512")->Apply(rates);
BENCHMARK(refiltered)->Apply(rates);

} // namespace
