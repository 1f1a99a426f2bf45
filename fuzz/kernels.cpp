// Every version of the kernels that the processor has against plain loops, bit for bit. Built twice: on the
// library with sanitizers, and on the one that ships.
#include "audio/audio.hpp"
#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/plain.hpp"
#include "audio/pitchFunction/plain.hpp"
#include "audio/pitchTracking/plain.hpp"
#include "support/check.hpp"
#include "support/exact.hpp"
#include "support/plainVoice.hpp"
#include "support/target.hpp"
#include "support/versions.hpp"
#include "utility/scaling/plain.hpp"
#include "utility/vector/median.hpp"

#include <numeric>

namespace {

using namespace wavepitch;

Exact<double> samples(Bytes& bytes, int length, double /*instance*/) {
    return exactDoubles(bytes, length);
}

Exact<int> samples(Bytes& bytes, int length, int /*instance*/) {
    return exactInts(bytes, length);
}

Exact<float> floats(Bytes& bytes, int length) {
    const Exact<double> values = exactDoubles(bytes, length);
    Exact<float> narrow(length);
    for (int i = 0; i < length; ++i)
        if (std::abs(values[i]) < 1e38 || !std::isfinite(values[i]))
            narrow[i] = static_cast<float>(values[i]);
    return narrow;
}

/// Frames and lags that plain loops take some hundred thousand steps for; now and then a frame that is longer
/// than its windows are stored for, and than 32-bit sums are wide for.
struct FrameShape {
    int n, pfLen, frames, step, leftOver;

    explicit FrameShape(Bytes& bytes)
        : n(bytes.below(40) == 0 ? bytes.length(1, 70000) : bytes.length(1, 1200)),
          pfLen(bytes.length(1, 300)), frames(bytes.length(1, 40)), step(bytes.from(1, n + 3)),
          leftOver(bytes.below(step)) {
        constexpr int mostSteps = 400000;
        pfLen = std::clamp(mostSteps / n, 1, pfLen);
        frames = std::clamp(mostSteps / n / pfLen, 1, frames);
    }
};

template <typename T>
void pitchFunctionMatrix(Bytes& bytes) {
    const FrameShape shape(bytes);
    const auto type = PF_TYPE{bytes.below(2)};
    const int method = bytes.from(1, 4);
    const int waveLen = (shape.frames - 1) * shape.step + shape.n + shape.leftOver;
    const Exact<T> wave = samples(bytes, waveLen, T{});
    Exact<double> expected(shape.frames * shape.pfLen);
    plainMat(wave.copy(), shape.frames, shape.n, shape.step, shape.pfLen, type, method, expected.data());
    withEveryVersion([&](const std::string& version) {
        Exact<double> found(shape.frames * shape.pfLen, 4711);
        wave2pfMat(wave.data(), waveLen, shape.n, shape.n - shape.step, shape.pfLen, type, method,
                   found.data());
        requireSameList(found, expected, "pitch functions, " + version);
    });
}

template <typename T>
void pitchFunctionOfFrame(Bytes& bytes) {
    const FrameShape shape(bytes);
    const int method = bytes.from(1, 4);
    const bool isAcf = bytes.flag();
    const bool removeMean = bytes.flag();
    const Exact<T> frame = samples(bytes, shape.n, T{});
    Exact<T> withoutMean = frame;
    if (isAcf && removeMean) plainRemoveMean(withoutMean.data(), shape.n);
    Exact<double> expected(shape.pfLen);
    plainSums(withoutMean.data(), shape.n, shape.pfLen, isAcf ? PF_ACF : PF_AMDF, method, expected.data());
    withEveryVersion([&](const std::string& version) {
        Exact<T> changed = frame;
        Exact<double> found(shape.pfLen, 4711);
        if (isAcf)
            frame2acf(changed.data(), shape.n, found.data(), shape.pfLen, method, removeMean ? 1 : 0);
        else
            frame2amdf(changed.data(), shape.n, found.data(), shape.pfLen, method);
        requireSameList(found, expected, "pitch function, " + version);
        requireSameList(changed, withoutMean, "its frame, " + version);
    });
}

template <typename T>
void flip(Bytes& bytes) {
    const int n = bytes.length(1, 600);
    Exact<T> frame(n);
    if constexpr (std::is_same_v<T, float>)
        frame = floats(bytes, n);
    else
        frame = samples(bytes, n, T{});
    Exact<T> expected = frame;
    plainFlip(expected.data(), n);
    withEveryVersion([&](const std::string& version) {
        Exact<T> found = frame;
        cAudio::frameFlip(found.data(), n);
        requireSameList(found, expected, "flip, " + version);
    });
}

PTPARAM pathParam(Bytes& bytes) {
    PTPARAM param;
    cAudio::ptParamSet(&param, bytes.oneOf({8000, 16000}), 16, PF_TYPE{bytes.below(2)}, nullptr);
    param.pfLen = bytes.from(0, 400);
    param.dpMethod = bytes.below(4);
    param.dpPosDiffOrder = bytes.below(3);
    param.pfWeight = bytes.oneOf({0.0F, 1.0F, 0.37F, -3.0F, 1e30F});
    param.indexDiffWeight = bytes.oneOf({0.0F, 1.0F, 0.1F, -2.0F, 700.0F, 1e30F});
    return param;
}

Frame candidates(Bytes& bytes) {
    Frame frame(size_t(bytes.below(30) == 0 ? 0 : bytes.length(1, 260)));
    const Exact<double> values = exactDoubles(bytes, static_cast<int>(frame.size()));
    const int spread = bytes.flag() ? 1 : bytes.from(1, 9);
    int lag = bytes.from(-20, 400);
    const double* value = values.begin();
    for (PPC& candidate : frame) {
        candidate = {lag, *value++, -7, -7.0};
        lag += bytes.from(1, spread);
    }
    return frame;
}

void path(Bytes& bytes) {
    const PTPARAM param = pathParam(bytes);
    std::vector<Frame> run(size_t(bytes.from(1, 5)));
    for (Frame& frame : run) frame = candidates(bytes);
    std::vector<Frame> plain = run;
    const Ints lags = plainPath(plain, param);
    withEveryVersion([&](const std::string& version) {
        std::vector<Exact<PPC>> found;
        Exact<STRUCT_A> frames(lengthOf(run));
        for (const Frame& frame : run) found.emplace_back(std::span<const PPC>(frame));
        for (int i = 0; i < frames.length(); ++i) {
            Exact<PPC>& frame = found[size_t(i)];
            frames[i] = {frame.length(), -1, frame.data()};
        }
        Exact<double> pitch(lengthOf(run));
        A2pitchByDp(frames.data(), frames.length(), param, pitch.data());
        for (int i = 0; i < frames.length(); ++i) {
            const Frame& expected = plain[size_t(i)];
            for (size_t j = 0; j < expected.size(); ++j) {
                requireSame(frames[i].ppc[j].prevIndex, expected[j].prevIndex, "predecessor, " + version);
                requireSame(frames[i].ppc[j].totalDist, expected[j].totalDist, "total, " + version);
            }
            requireSame(frames[i].bestIndex, lags[size_t(i)], "lag, " + version);
        }
    });
}

void frameFeatures(Bytes& bytes) {
    const int n = bytes.length(1, 600);
    const int bits = bytes.oneOf({1, 8, 16, 26, 27, 28, 32});
    const Exact<int> frame = exactInts(bytes, n, bits);
    const Exact<double> reals = exactDoubles(bytes, n);
    const int centre = bytes.anyInt();
    const auto size = static_cast<std::size_t>(n);
    std::int64_t deviation = 0;
    for (const int x : frame) deviation += std::abs(std::int64_t{x} - centre);
    withEveryVersion([&](const std::string& version) {
        const endPoint::FrameKernel kernel = endPoint::frameKernel();
        requireSame(kernel.deviation(frame.data(), size, centre), deviation, "deviation, " + version);
        requireSame(kernel.crossings(frame.data(), size), plainCrossings(frame.copy()),
                    "crossings, " + version);
        requireSame(kernel.crossingsOfDoubles(reals.data(), size), plainCrossings(reals.copy()),
                    "crossings of doubles, " + version);
        WideInts differences(frame.begin(), frame.end());
        for (int order = 1; order <= 5; ++order) {
            std::adjacent_difference(differences.begin(), differences.end(), differences.begin());
            if (!differences.empty()) differences.erase(differences.begin());
            requireSame(kernel.differences(frame.data(), size, order), sumOfDistances(differences, 0),
                        "differences, " + version);
        }
    });
}

void intMedian(Bytes& bytes) {
    const int n = bytes.length(1, 700);
    const Exact<int> values = exactInts(bytes, n);
    std::vector<std::int64_t> sorted(values.begin(), values.end());
    std::sort(sorted.begin(), sorted.end());
    const std::int64_t both = sorted[size_t(n - 1) / 2] + sorted[size_t(n) / 2];
    withEveryVersion([&](const std::string& version) {
        requireSame(std::int64_t{vecMedian(values.data(), n)}, both / 2, "median, " + version);
    });
}

void correlation(Bytes& bytes) {
    const int windowLen = bytes.length(1, 130);
    const int firstLag = bytes.length(1, 100);
    const int lagNum = bytes.length(1, 100);
    const auto frames = static_cast<int>(voice::correlationFrames);
    const int span = windowLen + firstLag + lagNum - 1;
    std::vector<Exact<float>> spans;
    std::vector<const float*> starts;
    for (int f = 0; f < frames; ++f) spans.push_back(floats(bytes, span));
    for (const Exact<float>& samples : spans) starts.push_back(samples.data());
    Exact<float> work(span * frames);
    Exact<float> energies((firstLag + lagNum) * frames);
    Exact<float> values(lagNum * frames);
    Exact<unsigned> maximumBits((lagNum + 31) / 32 * frames);
    const voice::Correlation task{.spans = starts.data(),
                                  .windowLen = static_cast<std::size_t>(windowLen),
                                  .firstLag = static_cast<std::size_t>(firstLag),
                                  .lagNum = static_cast<std::size_t>(lagNum),
                                  .floor = bytes.oneOf({1e-12, 1e-3, 1.0, 1e12}),
                                  .threshold = bytes.oneOf({-1.0F, 0.0F, 0.2F, 1.0F}),
                                  .samples = work.data(),
                                  .energies = energies.data(),
                                  .values = values.data(),
                                  .maximumBits = maximumBits.data()};
    plainCorrelation(task);
    const Exact<float> expected = values;
    const Exact<unsigned> expectedBits = maximumBits;
    withEveryVersion([&](const std::string& version) {
        std::fill(values.begin(), values.end(), -7.0F);
        std::fill(maximumBits.begin(), maximumBits.end(), 0xA5A5A5A5U);
        voice::correlationKernel()(task);
        requireSameList(values, expected, "correlation, " + version);
        requireSameList(maximumBits, expectedBits, "maxima, " + version);
    });
}

void filter(Bytes& bytes) {
    const int step = bytes.from(1, 9);
    const int reach = bytes.length(0, 90);
    const int num = static_cast<int>(voice::filterBlock) * bytes.from(1, 4);
    std::vector<Exact<float>> phases;
    std::vector<const float*> starts;
    for (int p = 0; p < step; ++p)
        phases.push_back(floats(bytes, p > 2 * reach ? 0 : num + (2 * reach - p) / step));
    for (const Exact<float>& phase : phases) starts.push_back(phase.data());
    const Exact<float> taps = floats(bytes, reach + 1);
    Exact<float> out(num);
    const voice::Filtering filtering{.phases = starts.data(),
                                     .step = static_cast<std::size_t>(step),
                                     .taps = taps.data(),
                                     .reach = static_cast<std::size_t>(reach),
                                     .num = static_cast<std::size_t>(num),
                                     .out = out.data()};
    plainFilter(filtering);
    const Exact<float> expected = out;
    withEveryVersion([&](const std::string& version) {
        std::fill(out.begin(), out.end(), -7.0F);
        voice::filterKernel()(filtering);
        requireSameList(out, expected, "filter, " + version);
    });
}

/// A melody without gaps; its steps are often the same.
Exact<double> melody(Bytes& bytes, int length) {
    Exact<double> pitch(length);
    for (double& x : pitch) x = bytes.flag() ? bytes.from(55, 67) : bytes.from(500, 700) / 10.0;
    return pitch;
}

void tunes(Bytes& bytes) {
    const Exact<double> query = melody(bytes, bytes.length(1, 60));
    TUNESEARCH search;
    search.lowerRatio = bytes.from(3, 10) / 10.0;
    search.upperRatio = search.lowerRatio + bytes.below(16) / 10.0;
    search.resolution = bytes.from(1, 12);
    search.distanceType = bytes.from(1, 2);
    std::vector<Exact<double>> pitches;
    std::vector<Exact<int>> starts;
    std::vector<TUNE> all;
    for (int i = bytes.from(1, 4); i > 0; --i) {
        pitches.push_back(melody(bytes, bytes.length(0, 99)));
        starts.push_back(Exact<int>(bytes.below(6)));
        for (int& start : starts.back()) start = bytes.from(-2, 101);
        const bool isAnywhere = bytes.flag();
        all.push_back({pitches.back().data(), pitches.back().length(),
                       isAnywhere ? nullptr : starts.back().data(), starts.back().length()});
    }
    Matches expected = plainMatches(query.copy(), all, search);
    expected.resize(std::min(expected.size(), size_t(bytes.from(1, 5))));
    withEveryVersion([&](const std::string& version) {
        Exact<TUNEMATCH> found(lengthOf(expected));
        const int count = findTune(query.data(), query.length(), all.data(), lengthOf(all), search,
                                   found.data(), found.length());
        requireSame(count, lengthOf(expected), "matches, " + version);
        for (int i = 0; i < count; ++i) {
            requireSame(found[i].tune, expected[size_t(i)].tune, "the tune, " + version);
            requireSame(found[i].distance, expected[size_t(i)].distance, "its distance, " + version);
            requireSame(found[i].position, expected[size_t(i)].position, "its position, " + version);
            requireSame(found[i].scale, expected[size_t(i)].scale, "its scale, " + version);
            requireSame(found[i].shift, expected[size_t(i)].shift, "its shift, " + version);
        }
    });
}

voice::Powers powers(Bytes& bytes) {
    const Exact<float> values = floats(bytes, 2 * static_cast<int>(voice::harmonicLanes + 1));
    voice::Powers result;
    std::copy_n(values.begin(), std::size(result.re), result.re);
    std::copy_n(values.begin() + std::size(result.re), std::size(result.im), result.im);
    return result;
}

void harmonics(Bytes& bytes) {
    const int lanes = static_cast<int>(voice::harmonicLanes);
    const int reach = bytes.length(1, 300);
    const Exact<float> samples = floats(bytes, 2 * (reach + lanes) + 1);
    const voice::Powers fundamental = powers(bytes);
    const voice::Powers window = powers(bytes);
    Exact<float> work(4 * (reach / lanes + 1) * lanes);
    const voice::Harmonics task{.centre = samples.data() + reach + lanes,
                                .reach = static_cast<std::size_t>(reach),
                                .num = bytes.oneOf<std::size_t>({4, 8}),
                                .fundamental = &fundamental,
                                .window = &window,
                                .work = work.data()};
    voice::HarmonicSums expected;
    plainHarmonics(task, expected);
    withEveryVersion([&](const std::string& version) {
        voice::HarmonicSums found;
        voice::harmonicSums()(task, found);
        requireSameList(std::span(found.evenCos), std::span(expected.evenCos), "even cosines, " + version);
        requireSameList(std::span(found.oddSin), std::span(expected.oddSin), "odd sines, " + version);
        requireSameList(std::span(found.oddCos), std::span(expected.oddCos), "odd cosines, " + version);
        requireSameList(std::span(found.evenSin), std::span(expected.evenSin), "even sines, " + version);
    });
}

} // namespace

void fuzz(Bytes& bytes) {
    constexpr void (*calls[])(Bytes&) = {pitchFunctionMatrix<double>,
                                         pitchFunctionMatrix<int>,
                                         pitchFunctionOfFrame<double>,
                                         pitchFunctionOfFrame<int>,
                                         flip<double>,
                                         flip<float>,
                                         flip<int>,
                                         path,
                                         frameFeatures,
                                         intMedian,
                                         correlation,
                                         filter,
                                         harmonics,
                                         tunes};
    calls[bytes.below(static_cast<int>(std::size(calls)))](bytes);
}
