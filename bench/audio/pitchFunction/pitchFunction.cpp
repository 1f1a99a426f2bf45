// Whole calls of wave2pfMat, by version of the kernels, beside plain loops; prints one table.
//
// Columns: for each version the terms per second (in 10^9) and, in brackets, how many times the plain loops
// it is; then the widest version's share of the peak that one core reaches on terms in registers (double,
// measured in the same run: a multiplication and an addition for the ACF, a difference, its absolute value
// and an addition for the AMDF), and for information the time of the plain loops, of the widest version and
// of an autocorrelation by FFT of the same frames, in ms. Options are those of Google Benchmark.
#include "audio/pitchFunction/plain.hpp"

#include "support/kernelVersion.hpp"
#include "support/peak.hpp"
#include "support/speech.hpp"
#include "utility/instructionSet.hpp"

#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Case {
    int n, pfLen, frames, bits; // bits of the int samples; 0: double
    PF_TYPE type;
    int method;

    int step() const { return n / 2; }
    int waveLen() const { return (frames - 1) * step() + n; }

    double terms() const {
        double perFrame = 0;
        for (int lag = 0; lag < pfLen; ++lag) perFrame += n - lag;
        return perFrame * frames;
    }

    std::string name() const {
        char text[100];
        std::snprintf(text, sizeof text, "%7dx%-4d %4d %s %s %d", n, pfLen, frames,
                      bits == 0    ? "double"
                      : bits == 16 ? "int16 "
                                   : "int8  ",
                      type == PF_ACF ? "ACF " : "AMDF", method);
        return text;
    }
};

template <typename T>
std::vector<T> waveOf(const Case& c) {
    static const std::vector<int> minute = speech("speech8k.wav");
    std::vector<T> wave(static_cast<std::size_t>(c.waveLen()));
    for (std::size_t i = 0; i < wave.size(); ++i) {
        const int sample = minute[i % minute.size()];
        wave[i] = c.bits == 0 ? static_cast<T>(sample / 32768.0)
                              : static_cast<T>(c.bits == 8 ? sample / 256 : sample);
    }
    return wave;
}

template <typename T>
void measure(benchmark::State& state, const Case& c, const std::string& version) {
    const std::vector<T> wave = waveOf<T>(c);
    std::vector<double> pf(static_cast<std::size_t>(c.frames * c.pfLen));
    const KernelVersion chosen(version);
    for ([[maybe_unused]] auto round : state) {
        if (version == "plain")
            plainMat(wave, c.frames, c.n, c.step(), c.pfLen, c.type, c.method, pf.data());
        else
            wave2pfMat(wave.data(), c.waveLen(), c.n, c.n - c.step(), c.pfLen, c.type, c.method, pf.data());
        benchmark::DoNotOptimize(pf.data());
        benchmark::ClobberMemory();
    }
}

/// The autocorrelation by way of the power spectrum: not the same bits, nor meant to be.
void measureFft(benchmark::State& state, const Case& c) {
    const std::vector<double> wave = waveOf<double>(c);
    std::vector<double> pf(static_cast<std::size_t>(c.frames * c.pfLen));
    int size = 1;
    while (size < c.n + c.pfLen) size *= 2;
    const auto bins = static_cast<std::size_t>(size / 2 + 1);
    double* x = fftw_alloc_real(static_cast<std::size_t>(size));
    fftw_complex* spectrum = fftw_alloc_complex(bins);
    fftw_plan forward = fftw_plan_dft_r2c_1d(size, x, spectrum, FFTW_MEASURE);
    fftw_plan back = fftw_plan_dft_c2r_1d(size, spectrum, x, FFTW_MEASURE);
    for ([[maybe_unused]] auto round : state)
        for (int i = 0; i < c.frames; ++i) {
            std::copy_n(wave.data() + i * c.step(), c.n, x);
            plainRemoveMean(x, c.n);
            std::fill(x + c.n, x + size, 0.0);
            fftw_execute(forward);
            for (std::size_t k = 0; k < bins; ++k) {
                spectrum[k][0] = spectrum[k][0] * spectrum[k][0] + spectrum[k][1] * spectrum[k][1];
                spectrum[k][1] = 0;
            }
            fftw_execute(back);
            for (int lag = 0; lag < c.pfLen; ++lag)
                pf[static_cast<std::size_t>(i * c.pfLen + lag)] =
                    x[lag] / size / (c.method == 2 ? c.n - lag : 1);
            benchmark::DoNotOptimize(pf.data());
        }
    fftw_destroy_plan(forward);
    fftw_destroy_plan(back);
    fftw_free(x);
    fftw_free(spectrum);
}

/// Keeps the median seconds of processor time per call, by name of the benchmark.
class Medians : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& /*context*/) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            if (run.aggregate_name == "median")
                seconds[run.run_name.function_name] = run.GetAdjustedCPUTime() / 1e9;
    }

    double of(const Case& c, const std::string& version) const {
        const auto found = seconds.find(c.name() + " " + version);
        return found == seconds.end() ? 0 : found->second;
    }

private:
    std::map<std::string, double> seconds;
};

std::vector<std::string> versions() {
    std::vector<std::string> names{"portable"};
    if (wavepitch::widestInstructionSet() >= wavepitch::InstructionSet::avx2) names.emplace_back("avx2");
    if (wavepitch::widestInstructionSet() >= wavepitch::InstructionSet::avx512) names.emplace_back("avx512");
    return names;
}

std::vector<Case> cases() {
    struct Group {
        std::vector<int> frames, methods;
        std::vector<std::pair<int, int>> shapes;
    };
    const std::vector<std::pair<int, int>> shapes = {{256, 128}, {512, 256}, {640, 320}, {1412, 706}};
    const Group groups[] = {{{200}, {1, 2}, shapes},
                            {{3, 2, 1}, {1}, shapes},
                            {{1}, {1}, {{1000000, 1}, {1000000, 5}, {24, 12}}}}; // small work
    std::vector<Case> all;
    for (const Group& group : groups)
        for (const int frames : group.frames)
            for (const auto& [n, pfLen] : group.shapes)
                for (const int bits : {0, 16, 8})
                    for (const PF_TYPE type : {PF_ACF, PF_AMDF})
                        for (const int method : group.methods)
                            all.push_back({n, pfLen, frames, bits, type, method});
    return all;
}

void registerAll(const Case& c) {
    const auto add = [&](const std::string& version, auto function) {
        benchmark::RegisterBenchmark((c.name() + " " + version).c_str(), function)
            ->MinTime(0.02)
            ->Repetitions(5)
            ->ReportAggregatesOnly();
    };
    std::vector<std::string> names = versions();
    names.emplace_back("plain");
    for (const std::string& version : names)
        add(version, [c, version](benchmark::State& state) {
            return c.bits == 0 ? measure<double>(state, c, version) : measure<int>(state, c, version);
        });
    if (c.type == PF_ACF && c.bits == 0) add("FFT", [c](benchmark::State& state) { measureFft(state, c); });
}

void printTable(const Medians& medians, const Peak& peak) {
    const std::vector<std::string> names = versions();
    std::printf("peak of one core, 10^9 terms/s: mul+add %.1f, sub+abs+add %.1f\n", peak.multiplyAdd / 1e9,
                peak.subtractAdd / 1e9);
    std::printf("%-34s %6s", "      shape frames samples type mth", "plain");
    for (const std::string& version : names) std::printf(" %14s", version.c_str());
    std::printf(" %6s %9s %9s %9s\n", "peak", "plain ms", "ms", "FFT ms");
    for (const Case& c : cases()) {
        const double plain = medians.of(c, "plain");
        if (plain == 0) continue;
        std::printf("%-34s %6.2f", c.name().c_str(), c.terms() / plain / 1e9);
        double last = 0;
        for (const std::string& version : names) {
            last = medians.of(c, version);
            std::printf(" %6.2f (%4.1fx)", c.terms() / last / 1e9, plain / last);
        }
        const double most = c.type == PF_ACF ? peak.multiplyAdd : peak.subtractAdd;
        std::printf(" %5.0f%% %9.3f %9.3f", 100 * c.terms() / last / most, plain * 1e3, last * 1e3);
        if (const double fft = medians.of(c, "FFT"); fft > 0) std::printf(" %9.3f", fft * 1e3);
        std::printf("\n");
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    for (const Case& c : cases()) registerAll(c);
    const Peak peak = measurePeak();
    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    printTable(medians, peak);
}
