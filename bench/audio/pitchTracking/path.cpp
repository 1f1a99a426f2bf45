// The path search over 305 consecutive lags a frame (ACF at 16 kHz, every lag a candidate) in each version of
// its kernel, beside plain loops, on values that let a processor guess the comparisons and on random ones,
// with distances in lags (dpMethod 1) and in tenths of a semitone (2).
#include "audio/audio.hpp"
#include "utility/rounding.hpp"

#include "support/kernelVersion.hpp"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace {

constexpr int frameNum = 50;
constexpr int lagNum = 305;
constexpr int firstLag = 15;

PTPARAM parameters(std::int64_t dpMethod) {
    PTPARAM ptParam;
    cAudio::ptParamSet(&ptParam, 16000, 16, PF_ACF, nullptr);
    ptParam.dpMethod = static_cast<int>(dpMethod);
    return ptParam;
}

/// Where each lag stands on the scale that distances are measured on.
std::vector<int> positions(const PTPARAM& ptParam) {
    std::vector<int> position(firstLag + lagNum);
    for (int lag = firstLag; lag < firstLag + lagNum; ++lag) {
        const float frequency = static_cast<float>(ptParam.fs) / static_cast<float>(lag);
        const int tenths = myRound(10.0F * cAudio::freq2pitch(frequency));
        position[static_cast<size_t>(lag)] = ptParam.dpMethod == 2 ? tenths : lag;
    }
    return position;
}

/// A run of frames; the values of each fall steadily from lag to lag, or are random.
struct Frames {
    std::vector<PPC> candidates;
    std::vector<STRUCT_A> A;

    explicit Frames(bool randomValues) : candidates(frameNum * lagNum) {
        std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
        std::uniform_real_distribution<double> anywhere(-1048576.0, 1048576.0);
        for (int i = 0; i < frameNum; ++i) {
            PPC* frame = candidates.data() + i * lagNum;
            for (int j = 0; j < lagNum; ++j)
                frame[j] = {firstLag + j, randomValues ? anywhere(random) : 1048576.0 - 3000.0 * j, -1, 0.0};
            A.push_back({lagNum, -1, frame});
        }
    }
};

void plainSearch(const PTPARAM& ptParam, const std::vector<int>& position, std::vector<STRUCT_A>& A) {
    for (int j = 0; j < lagNum; ++j)
        A[0].ppc[j].totalDist = static_cast<double>(ptParam.pfWeight) * A[0].ppc[j].pfValue;
    for (size_t i = 1; i < A.size(); ++i)
        for (int j = 0; j < lagNum; ++j) {
            PPC& cur = A[i].ppc[j];
            const int at = position[static_cast<size_t>(cur.index)];
            const PPC* prev = A[i - 1].ppc;
            float best = 0.0F;
            for (int k = 0; k < lagNum; ++k) {
                const int d = position[static_cast<size_t>(prev[k].index)] - at;
                const float penalty = ptParam.indexDiffWeight * static_cast<float>(d * d);
                const auto value = static_cast<float>(prev[k].totalDist - static_cast<double>(penalty));
                if (k > 0 && !(value > best)) continue;
                best = value;
                cur.prevIndex = k;
            }
            cur.totalDist = static_cast<double>(best) + static_cast<double>(ptParam.pfWeight) * cur.pfValue;
        }
}

void perFrame(benchmark::State& state) {
    state.counters["perFrame"] = benchmark::Counter(
        frameNum - 1, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void plain(benchmark::State& state) {
    Frames frames(state.range(0) != 0);
    const PTPARAM ptParam = parameters(state.range(1));
    const std::vector<int> position = positions(ptParam);
    for (auto _ : state) plainSearch(ptParam, position, frames.A);
    perFrame(state);
}

void kernel(benchmark::State& state, const char* version) {
    Frames frames(state.range(0) != 0);
    const PTPARAM ptParam = parameters(state.range(1));
    std::vector<double> pitch(frameNum);
    const KernelVersion chosen(version);
    for (auto _ : state) A2pitchByDp(frames.A.data(), frameNum, ptParam, pitch.data());
    perFrame(state);
}

void bothKinds(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"random", "dpMethod"})->ArgsProduct({{0, 1}, {1, 2}});
}

BENCHMARK(plain)->Apply(bothKinds);
BENCHMARK_CAPTURE(kernel, portable, "portable")->Apply(bothKinds);
BENCHMARK_CAPTURE(kernel, avx2, "avx2")->Apply(bothKinds);
BENCHMARK_CAPTURE(kernel, avx512, "avx512")->Apply(bothKinds);

} // namespace
