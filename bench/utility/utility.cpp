// The numeric utilities: medians of frames and recordings, the sort that carries an index, linear scaling and
// set cover.
#include "utility/utility.hpp"

#include <benchmark/benchmark.h>

#include <cmath>
#include <numeric>
#include <random>
#include <vector>

namespace {

enum Order : int { randomOrder, sortedOrder, constantOrder };

std::vector<double> values(std::size_t n, int order) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::vector<double> vec(n);
    for (std::size_t i = 0; i < n; ++i)
        vec[i] = order == randomOrder   ? static_cast<double>(random() % 65536) - 32768.0
                 : order == sortedOrder ? static_cast<double>(i)
                                        : 0.0;
    return vec;
}

/// Frames of one recording, so that no frame comes round before the processor has forgotten it.
template <typename T>
void median(benchmark::State& state) {
    const auto n = static_cast<std::size_t>(state.range(0));
    const std::size_t frameNum = 1 + 500000 / n;
    const std::vector<double> wave = values(n * frameNum, static_cast<int>(state.range(1)));
    const std::vector<T> samples(wave.begin(), wave.end());
    std::size_t frame = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(vecMedian(samples.data() + frame * n, static_cast<int>(n)));
        if (++frame == frameNum) frame = 0;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(median<double>)->ArgsProduct({{256, 705, 200000}, {randomOrder, sortedOrder, constantOrder}});
BENCHMARK(median<int>)->ArgsProduct({{256, 705, 200000}, {randomOrder, sortedOrder, constantOrder}});

void sortWithIndex(benchmark::State& state) {
    const std::vector<double> input =
        values(static_cast<std::size_t>(state.range(0)), static_cast<int>(state.range(1)));
    std::vector<int> index(input.size());
    for (auto _ : state) {
        std::vector<double> vec = input;
        std::iota(index.begin(), index.end(), 0);
        quickSort(vec.data(), 0, static_cast<int>(vec.size()) - 1, index.data());
        benchmark::DoNotOptimize(vec.data());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(sortWithIndex)
    ->Args({5000, randomOrder})
    ->Args({5000, sortedOrder})
    ->Args({225000, randomOrder})
    ->Args({225000, constantOrder});

/// A query of 8 s of pitch against a song of 16 s, 31 scales; the useful cutoff abandons most of them.
void preparedScaling(benchmark::State& state) {
    constexpr int resolution = 31;
    const std::vector<double> query = values(250, randomOrder);
    const std::vector<double> reference = values(501, randomOrder);
    const double cutoff = state.range(1) != 0 ? 1000.0 : HUGE_VAL;
    std::vector<double> distance(resolution);
    std::vector<double> shift(resolution);
    std::vector<double> work(reference.size());
    SCALEDVECSET set;
    linearScaledVecCreate(query.data(), 250, 0.5, 2.0, resolution, &set);
    for (auto _ : state) {
        int best = 0;
        benchmark::DoNotOptimize(linearScaling2(&set, reference.data(), 501, static_cast<int>(state.range(0)),
                                                distance.data(), shift.data(), nullptr, work.data(), best,
                                                cutoff));
    }
    linearScaledVecFree(&set);
}
BENCHMARK(preparedScaling)->ArgNames({"type", "cutoff"})->ArgsProduct({{1, 2}, {0, 1}});

void setCover200x50(benchmark::State& state) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::vector<double> input(std::size_t{200} * 50);
    for (double& x : input) x = static_cast<double>(random() % 1001);
    int chosen[200];
    double coverage[200];
    for (auto _ : state) {
        std::vector<double> sets = input;
        benchmark::DoNotOptimize(setCover(sets.data(), 200, 50, 200, chosen, coverage));
    }
}
BENCHMARK(setCover200x50);

} // namespace
