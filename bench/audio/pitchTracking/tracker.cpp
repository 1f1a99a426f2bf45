// The whole tracker on one minute of speech, in times real time, and the time of each of its stages as a
// share of the whole; then the entry for 16-bit recordings.
#include "audio/audio.hpp"
#include "audio/endPoint/segment.hpp"
#include "audio/pitchTracking/candidateTable.hpp"
#include "audio/pitchTracking/pitchMatrix.hpp"
#include "support/speech.hpp"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "standIn.hpp"

namespace {

using namespace wavepitch::pitchTracking;

constexpr int seconds = 60;

std::vector<int> speechAt(int fs) {
    return speech(fs == 8000 ? "speech8k.wav" : "reading16k.wav", seconds);
}

void timesRealTime(benchmark::State& state) {
    state.counters["timesRealTime"] =
        benchmark::Counter(seconds * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

/// The stages one by one, as the tracker chains them, with the time that each takes.
struct Stages {
    double matrix = 0, normalisation = 0, clarity = 0, candidates = 0, path = 0, volumeGate = 0;

    static double timed(auto stage) {
        const auto start = std::chrono::steady_clock::now();
        stage();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }

    Stages(const std::vector<int>& wave, PTPARAM& p) {
        const auto length = static_cast<int>(wave.size());
        const int frameNum = cAudio::getFrameNum2(length, p.frameSize, p.overlap);
        const auto frames = static_cast<size_t>(frameNum);
        std::vector<double> values(frames * static_cast<size_t>(p.pfLen));
        std::vector<double> clarityOf(frames);
        std::vector<double> pitch(frames);
        const PitchMatrix pf{values.data(), frameNum, p.pfLen};
        matrix = timed([&] {
            wave2pfMat(wave.data(), length, p.frameSize, p.overlap, p.pfLen, p.pfType, pfMethodOf(p.pfType),
                       values.data());
        });
        normalisation = timed([&] { normalise(pf); });
        if (p.useClarityWeight != 0)
            clarity = timed([&] {
                findClarity(pf, p, clarityOf.data());
                weightByClarity(pf, clarityOf.data());
            });
        std::vector<CandidateTable> table;
        candidates = timed([&] { table.emplace_back(pf, p, true); });
        path = timed([&] { table.front().findPath(p, pitch.data()); });
        volumeGate = timed([&] {
            EPDPARAM epdParam;
            cAudio::epdParamSet(p.fs, epdParam);
            int segNum = 0;
            const SegmentArray segments(cAudio::epdByVol(wave.data(), length, p.fs, epdParam, &segNum));
        });
    }
};

void tracker(benchmark::State& state, PF_TYPE pfType) {
    const auto fs = static_cast<int>(state.range(0));
    const std::vector<int> wave = speechAt(fs);
    PTPARAM p;
    cAudio::ptParamSet(&p, fs, 16, pfType, nullptr);
    std::vector<double> pitch(wave.size() / 100);
    const auto track = [&] {
        ptByDpOverPfOnce<double, int>(wave.data(), static_cast<int>(wave.size()), p, pitch.data(), nullptr,
                                      nullptr, nullptr);
    };
    for (auto _ : state) track();
    timesRealTime(state);
    const double whole = Stages::timed(track);
    const Stages stages(wave, p);
    const auto share = [&](const char* name, double time) { state.counters[name] = 100.0 * time / whole; };
    share("%matrix", stages.matrix);
    share("%normalisation", stages.normalisation);
    share("%clarity", stages.clarity);
    share("%candidates", stages.candidates);
    share("%path", stages.path);
    share("%volumeGate", stages.volumeGate);
}

void recording(benchmark::State& state) {
    const auto fs = static_cast<int>(state.range(0));
    const std::vector<int> source = speechAt(8000);
    std::vector<short> wave(static_cast<size_t>(seconds) * static_cast<size_t>(fs));
    for (size_t i = 0; i < wave.size(); ++i)
        wave[i] = static_cast<short>(source[i * 8000 / static_cast<size_t>(fs) % source.size()]);
    standIn::Console console = standIn::setConsole([](std::string_view) {});
    for (auto _ : state) {
        int* out = nullptr;
        int outLen = 0;
        cAudio::bGetPitch(wave, out, outLen, fs, 16);
        std::free(out);
    }
    standIn::setConsole(console);
    timesRealTime(state);
}

BENCHMARK_CAPTURE(tracker, AMDF, PF_AMDF)
    ->ArgName("fs")
    ->Arg(8000)
    ->Arg(16000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tracker, ACF, PF_ACF)->ArgName("fs")->Arg(8000)->Arg(16000)->Unit(benchmark::kMillisecond);
BENCHMARK(recording)->Name("bGetPitch")->ArgName("fs")->Arg(8000)->Arg(44100)->Unit(benchmark::kMillisecond);

} // namespace
