// The whole tracker on speech of several lengths, in times real time, with the time of each of its stages as
// a share of the whole and the memory that it takes beyond the caller's; then the entry for 16-bit
// recordings.
#include "audio/audio.hpp"
#include "audio/endPoint/segment.hpp"
#include "audio/pitchTracking/candidatePicker.hpp"
#include "audio/pitchTracking/loudest.hpp"
#include "audio/pitchTracking/openPath.hpp"
#include "audio/pitchTracking/pitchMatrix.hpp"
#include "support/speech.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/resource.h>

#include "standIn.hpp"

namespace {

using namespace wavepitch::pitchTracking;

/// Speech at any rate: the recording made for the nearest one, played faster or slower.
std::vector<int> speechAt(int fs, int seconds) {
    const int rate = fs == 8000 ? 8000 : 16000;
    const std::vector<int> source = speech(fs == 8000 ? "speech8k.wav" : "reading16k.wav", 60);
    std::vector<int> wave(static_cast<size_t>(seconds) * static_cast<size_t>(fs));
    for (size_t i = 0; i < wave.size(); ++i)
        wave[i] = source[i * static_cast<size_t>(rate) / static_cast<size_t>(fs) % source.size()];
    return wave;
}

void timesRealTime(benchmark::State& state, int seconds) {
    state.counters["timesRealTime"] =
        benchmark::Counter(seconds * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

/// The most memory that this process has held so far.
double peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

/// The stages one by one, as the tracker chains them, with the time that each takes.
struct Stages {
    double largest = 0, matrix = 0, normalisation = 0, clarity = 0, candidates = 0, path = 0, volumeGate = 0;

    static double timed(auto stage) {
        const std::clock_t start = std::clock(); // processor time: other programs do not count
        stage();
        return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    }

    Stages(const std::vector<int>& wave, const PTPARAM& p) {
        const auto length = static_cast<int>(wave.size());
        wavepitch::framing::IntSamples samples(wave.data(), length);
        const FramedWave framed(samples, p);
        constexpr int framesAtATime = 50;
        std::vector<double> values(static_cast<size_t>(framesAtATime) * static_cast<size_t>(p.pfLen));
        std::vector<double> clarityOf(framesAtATime);
        double magnitude = 0;
        largest = timed([&] { magnitude = largestMagnitude(framed, p.pfLen); });
        CandidatePicker picker(p);
        OpenPath openPath(p, [](int, int, std::optional<double>) {});
        for (int first = 0; first < framed.frameNum; first += framesAtATime) {
            const PitchMatrix pf{values.data(), std::min(framesAtATime, framed.frameNum - first), p.pfLen};
            matrix += timed([&] { framed.pitchFunctions(first, pf); });
            normalisation += timed([&] { normalise(pf, magnitude); });
            if (p.useClarityWeight != 0)
                clarity += timed([&] {
                    findClarity(pf, p, first, framed.frameNum, clarityOf.data());
                    weightByClarity(pf, clarityOf.data());
                });
            const auto pick = [&](auto use) {
                for (int i = 0; i < pf.frameNum; ++i) use(picker.of(pf.frame(i), p.pfLen));
            };
            const double picking = timed(
                [&] { pick([](const FrameCandidates& found) { benchmark::DoNotOptimize(found.count); }); });
            candidates += picking;
            path += timed([&] {
                pick([&](const FrameCandidates& found) { openPath.add(found); });
                openPath.handOn();
            });
            path -= picking;
        }
        volumeGate = timed([&] {
            EPDPARAM epdParam;
            cAudio::epdParamSet(p.fs, epdParam);
            int segNum = 0;
            const SegmentArray segments(cAudio::epdByVol(wave.data(), length, p.fs, epdParam, &segNum));
        });
    }
};

/// Of speech as long as given: its speed, the time by stage, and how far the process grows in the first call.
void tracker(benchmark::State& state, int fs, PF_TYPE pfType, float frameRate) {
    const auto seconds = static_cast<int>(60 * state.range(0));
    const std::vector<int> wave = speechAt(fs, seconds);
    PTPARAM p;
    cAudio::ptParamSet(&p, frameRate, fs, 16, pfType);
    std::vector<double> pitch(static_cast<size_t>(seconds) * static_cast<size_t>(frameRate + 1));
    const auto track = [&] {
        ptByDpOverPfOnce<double, int>(wave.data(), static_cast<int>(wave.size()), p, pitch.data(), nullptr,
                                      nullptr, nullptr);
    };
    const double before = peakMegabytes();
    const double whole = Stages::timed(track);
    state.counters["MB"] = peakMegabytes() - before;
    for (auto _ : state) track();
    timesRealTime(state, seconds);
    const Stages stages(wave, p);
    const auto share = [&](const char* name, double time) { state.counters[name] = 100.0 * time / whole; };
    share("%largest", stages.largest);
    share("%matrix", stages.matrix);
    share("%normalisation", stages.normalisation);
    share("%clarity", stages.clarity);
    share("%candidates", stages.candidates);
    share("%path", stages.path);
    share("%volumeGate", stages.volumeGate);
}

void recording(benchmark::State& state) {
    constexpr int seconds = 60;
    const auto fs = static_cast<int>(state.range(0));
    const std::vector<int> source = speechAt(fs, seconds);
    const std::vector<short> wave(source.begin(), source.end());
    standIn::Console console = standIn::setConsole([](std::string_view) {});
    for (auto _ : state) {
        int* out = nullptr;
        int outLen = 0;
        cAudio::bGetPitch(wave, out, outLen, fs, 16);
        std::free(out);
    }
    standIn::setConsole(console);
    timesRealTime(state, seconds);
}

void lengths(benchmark::internal::Benchmark* bench) {
    bench->ArgName("minutes")->Arg(1)->Arg(10)->Arg(60)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(tracker, 8k_ACF, 8000, PF_ACF, 100.0F)->Apply(lengths);
BENCHMARK_CAPTURE(tracker, 16k_ACF, 16000, PF_ACF, 100.0F)->Apply(lengths);
BENCHMARK_CAPTURE(tracker, 16k_AMDF, 16000, PF_AMDF, 100.0F)->Apply(lengths);
BENCHMARK_CAPTURE(tracker, 44k_ACF, 44100, PF_ACF, 100.0F)->Apply(lengths);
BENCHMARK(recording)->Name("bGetPitch")->ArgName("fs")->Arg(8000)->Arg(44100)->Unit(benchmark::kMillisecond);

} // namespace
