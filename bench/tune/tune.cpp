// Finding tunes: how often hummed phrases are found, and how long it takes.
//
// found: the share of 200 queries whose tune comes first, and among the first three, out of the collection in
// examples/tunes. tenThousand: a query against ten thousand tunes of 300 frames made from the
// collection, 12.5 frames a second; the plain loop calls linearScaling for the beginning of each tune,
// without a cutoff.
#include "support/kernelVersion.hpp"
#include "tune/humming.hpp"
#include "utility/scaling/linearScaling.hpp"

#include <benchmark/benchmark.h>

#include <cmath>

namespace {

enum Places : int { phrases, anywhere };

constexpr int step = 8; // frames of a query for one of the many tunes
constexpr int matchMax = 10;

const std::vector<MELODY>& collection() {
    static const std::vector<MELODY> melodies = melodyRead(WAVEPITCH_EXAMPLES "/tunes/tunes.tsv");
    return melodies;
}

std::vector<TUNE> tunesOf(const std::vector<CONTOUR>& contours, int places) {
    std::vector<TUNE> tunes;
    for (const CONTOUR& contour : contours)
        tunes.push_back({contour.pitch.data(), static_cast<int>(contour.pitch.size()),
                         places == anywhere ? nullptr : contour.start.data(),
                         static_cast<int>(contour.start.size())});
    return tunes;
}

std::vector<TUNEMATCH> search(const std::vector<double>& query, const std::vector<TUNE>& tunes) {
    std::vector<TUNEMATCH> matches(matchMax);
    matches.resize(
        static_cast<std::size_t>(findTune(query.data(), static_cast<int>(query.size()), tunes.data(),
                                          static_cast<int>(tunes.size()), {}, matches.data(), matchMax)));
    return matches;
}

void found(benchmark::State& state) {
    constexpr int queryNum = 200;
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::vector<CONTOUR> contours;
    for (const MELODY& melody : collection()) contours.push_back(note2contour(melody, humFrameRate));
    const std::vector<TUNE> tunes = tunesOf(contours, phrases);
    int first = 0;
    int amongThree = 0;
    for (auto _ : state)
        for (int i = 0; i < queryNum; ++i) {
            state.PauseTiming();
            const Hum query = hum(collection(), random);
            const std::vector<double> f0 = tracked(query, static_cast<double>(state.range(0)), random);
            state.ResumeTiming();
            const CONTOUR contour = pitch2contour(f0.data(), static_cast<int>(f0.size()), {});
            const std::vector<TUNEMATCH> matches = search(contour.pitch, tunes);
            for (std::size_t rank = 0; rank < std::min<std::size_t>(3, matches.size()); ++rank) {
                if (matches[rank].tune != query.tune) continue;
                ++amongThree;
                if (rank == 0) ++first;
            }
        }
    state.counters["%first"] = 100.0 * first / queryNum;
    state.counters["%amongThree"] = 100.0 * amongThree / queryNum;
    state.counters["a query"] =
        benchmark::Counter(queryNum, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(found)->ArgName("dB")->Arg(20)->Arg(10)->Iterations(1)->Unit(benchmark::kMillisecond);

/// Ten thousand tunes in other keys and tempos, and a query that hums one of them.
struct ManyTunes {
    std::vector<CONTOUR> contours;
    std::vector<double> query;

    ManyTunes() {
        constexpr std::size_t frameNum = 300;
        std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
        std::uniform_real_distribution<double> tempo(0.7, 1.4);
        while (contours.size() < 10000) {
            const MELODY& melody = collection()[random() % collection().size()];
            const CONTOUR whole = note2contour(melody, humFrameRate / (step * tempo(random)));
            const auto first = static_cast<std::size_t>(whole.start[random() % whole.start.size()]);
            const double key = static_cast<double>(random() % 12);
            CONTOUR contour{{}, 0, {0}};
            for (std::size_t i = 0; i < frameNum; ++i) // over again where it ends
                contour.pitch.push_back(whole.pitch[(first + i) % whole.pitch.size()] + key);
            contours.push_back(std::move(contour));
        }
        const std::vector<double> f0 = tracked(hum(collection(), random), 20, random);
        const CONTOUR all = pitch2contour(f0.data(), static_cast<int>(f0.size()), {});
        for (std::size_t i = 0; i < all.pitch.size(); i += step) query.push_back(all.pitch[i]);
    }
};

const ManyTunes& manyTunes() {
    static const ManyTunes many;
    return many;
}

void tenThousand(benchmark::State& state, const char* set) {
    const KernelVersion version(set);
    const std::vector<TUNE> tunes = tunesOf(manyTunes().contours, static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(search(manyTunes().query, tunes).data());
}

void tenThousandPlain(benchmark::State& state) {
    const TUNESEARCH usual;
    const std::vector<double>& query = manyTunes().query;
    std::vector<double> distance(static_cast<std::size_t>(usual.resolution));
    std::vector<double> shift(distance.size());
    std::vector<double> scaled(manyTunes().contours.front().pitch.size());
    std::vector<double> difference(scaled.size());
    for (auto _ : state)
        for (const CONTOUR& contour : manyTunes().contours) {
            int scale = 0;
            benchmark::DoNotOptimize(
                linearScaling(query.data(), static_cast<int>(query.size()), contour.pitch.data(),
                              static_cast<int>(contour.pitch.size()), usual.lowerRatio, usual.upperRatio,
                              usual.resolution, usual.distanceType, distance.data(), shift.data(),
                              scaled.data(), difference.data(), scale, HUGE_VAL));
        }
}

void places(benchmark::internal::Benchmark* benchmark) {
    benchmark->ArgName("anywhere")->Arg(phrases)->Arg(anywhere)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(tenThousand, portable, "portable")->Apply(places);
BENCHMARK_CAPTURE(tenThousand, avx2, "avx2")->Apply(places);
BENCHMARK_CAPTURE(tenThousand, avx512, "avx512")->Apply(places);
BENCHMARK(tenThousandPlain)->Unit(benchmark::kMillisecond);

} // namespace
