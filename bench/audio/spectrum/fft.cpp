// fftComplex beside FFTW, both in place on split arrays; the counter "ofFftw" is the time in units of FFTW's.
#include "audio/audio.hpp"

#include <benchmark/benchmark.h>
#include <fftw3.h>

#include <algorithm>
#include <ctime>
#include <vector>

namespace {

template <typename T>
struct Fftw;

template <>
struct Fftw<double> {
    using Plan = fftw_plan;
    static Plan plan(fftw_iodim size, double* re, double* im) {
        return fftw_plan_guru_split_dft(1, &size, 0, nullptr, re, im, re, im, FFTW_MEASURE);
    }
    static void execute(Plan plan) { fftw_execute(plan); }
    static void destroy(Plan plan) { fftw_destroy_plan(plan); }
};

template <>
struct Fftw<float> {
    using Plan = fftwf_plan;
    static Plan plan(fftw_iodim size, float* re, float* im) {
        return fftwf_plan_guru_split_dft(1, &size, 0, nullptr, re, im, re, im, FFTW_MEASURE);
    }
    static void execute(Plan plan) { fftwf_execute(plan); }
    static void destroy(Plan plan) { fftwf_destroy_plan(plan); }
};

/// Processor time: the ratio is to hold on a busy machine too.
double seconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Transforms silence over and over: it stays what it is, and the time does not depend on the values.
template <typename T>
void fft(benchmark::State& state) {
    const auto n = static_cast<int>(state.range(0));
    std::vector<T> real(static_cast<size_t>(n)), imag(real);
    const auto plan = Fftw<T>::plan({n, 1, 1}, real.data(), imag.data());
    std::fill(real.begin(), real.end(), T{});
    std::fill(imag.begin(), imag.end(), T{});
    constexpr int rounds = 5000;
    const double begin = seconds();
    for (int i = 0; i < rounds; ++i) Fftw<T>::execute(plan);
    const double reference = (seconds() - begin) / rounds;
    Fftw<T>::destroy(plan);

    const double start = seconds();
    for (auto _ : state) fftComplex(real.data(), imag.data(), n);
    state.counters["ofFftw"] = (seconds() - start) / static_cast<double>(state.iterations()) / reference;
}
BENCHMARK(fft<double>)->Name("fftComplex/double")->Arg(256)->Arg(512)->Arg(1024)->Arg(4096);
BENCHMARK(fft<float>)->Name("fftComplex/float")->Arg(256)->Arg(512)->Arg(1024)->Arg(4096);

} // namespace
