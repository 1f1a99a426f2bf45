// The stages of the tracker against plain twins, bit by bit, in every version.
#include "audio/voice/made.hpp"

#include "audio/voice/candidates.hpp"
#include "audio/voice/refinement.hpp"

namespace {

using namespace wavepitch::voice;
using Floats = std::vector<float>;

Floats randomFloats(std::mt19937& random, size_t num) {
    std::normal_distribution<float> any;
    Floats values(num);
    for (float& x : values) x = any(random);
    return values;
}

/// Calls once with each version of a kernel.
template <typename Of, typename Call>
void withEveryVersion(Of of, Call call) {
    withEveryKernel([&](const char* set) { call(versionFor(wavepitch::instructionSet(), of), set); });
#if defined(__x86_64__)
    if (hasEightLanes()) call(of.template operator()<eightLanes>(), "avx512 on avx2");
#endif
}

TEST(VoiceFilter, EveryVersionEqualsThePlainSum) {
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    for (const size_t reach : {0U, 1U, 7U, 64U})
        for (const size_t step : {1U, 2U, 3U, 8U})
            for (const size_t num : {64U, 192U}) {
                const Floats taps = randomFloats(random, reach + 1);
                const Floats x = randomFloats(random, (num + 1) * step + 2 * reach + 1);
                std::vector<Floats> phases(step);
                for (size_t i = 0; i < x.size(); ++i) phases[i % step].push_back(x[i]);
                std::vector<const float*> starts;
                for (const Floats& phase : phases) starts.push_back(phase.data());
                Floats plain(num);
                for (size_t i = 0; i < num; ++i) {
                    const float* centre = &x[i * step + reach];
                    plain[i] = taps[0] * *centre;
                    for (size_t k = 1; k <= reach; ++k) plain[i] += taps[k] * (*(centre - k) + centre[k]);
                }
                const auto of = []<wavepitch::InstructionSet set> { return filterOf<set>; };
                withEveryVersion(of, [&](auto filter, const char* name) {
                    Floats out(num);
                    filter({starts.data(), step, taps.data(), reach, num, out.data()});
                    EXPECT_EQ(out, plain) << name << ", reach " << reach << ", step " << step;
                });
            }
}

/// One frame of the correlation.
struct PlainCorrelation {
    Floats values;
    std::vector<bool> isMaximum;

    PlainCorrelation(const float* span, size_t windowLen, size_t firstLag, size_t lagNum, double floor,
                     float threshold)
        : values(lagNum), isMaximum(lagNum) {
        const size_t lastLag = firstLag + lagNum - 1;
        Floats energies;
        double energy = 0;
        const auto square = [&](size_t t) {
            return static_cast<double>(span[t]) * static_cast<double>(span[t]);
        };
        for (size_t t = 0; t < windowLen; ++t) energy += square(t);
        for (size_t t = 0; t <= lastLag; ++t) {
            energies.push_back(static_cast<float>(energy + floor));
            if (t < lastLag) energy += square(t + windowLen) - square(t);
        }
        for (size_t row = 0; row < lagNum; ++row) {
            const size_t lag = firstLag + row;
            const size_t start = (windowLen + lastLag) / 2 - (windowLen + lag) / 2;
            float sum = 0;
            for (size_t j = 0; j < windowLen; ++j) sum += span[start + j] * span[start + lag + j];
            values[row] = (sum + sum) / (energies[start] + energies[start + lag]);
        }
        for (size_t row = 1; row + 1 < lagNum; ++row)
            isMaximum[row] =
                values[row] > threshold && values[row] > values[row - 1] && values[row] >= values[row + 1];
    }
};

TEST(VoiceCorrelation, EveryVersionEqualsThePlainSums) {
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp)
    for (const size_t windowLen : {1U, 12U, 95U})
        for (const size_t firstLag : {3U, 10U})
            for (const size_t lagNum : {1U, 2U, 3U, 15U, 32U, 33U, 66U}) {
                const size_t span = windowLen + firstLag + lagNum - 1;
                Floats x = randomFloats(random, span + 40);
                if (windowLen == 12) std::fill(x.begin(), x.end(), 1.0F); // all lags are equal
                const float* spans[correlationFrames];
                for (size_t f = 0; f < correlationFrames; ++f) spans[f] = &x[random() % 40];
                Floats samples(span * correlationFrames);
                Floats energies((firstLag + lagNum) * correlationFrames);
                Floats values(lagNum * correlationFrames);
                std::vector<unsigned> bits((lagNum + 31) / 32 * correlationFrames);
                const auto of = []<wavepitch::InstructionSet set> { return correlationOf<set>; };
                withEveryVersion(of, [&](auto correlate, const char* name) {
                    correlate({spans, windowLen, firstLag, lagNum, 0.5, 0.1F, samples.data(), energies.data(),
                               values.data(), bits.data()});
                    for (size_t f = 0; f < correlationFrames; ++f) {
                        const PlainCorrelation plain(spans[f], windowLen, firstLag, lagNum, 0.5, 0.1F);
                        for (size_t row = 0; row < lagNum; ++row) {
                            const unsigned word = bits[row / 32 * correlationFrames + f];
                            ASSERT_EQ(values[row * correlationFrames + f], plain.values[row])
                                << name << ", window " << windowLen << ", lag " << firstLag + row << " of "
                                << lagNum;
                            ASSERT_EQ((word >> row % 32 & 1U) != 0, plain.isMaximum[row])
                                << name << ", window " << windowLen << ", lag " << firstLag + row << " of "
                                << lagNum;
                        }
                    }
                });
            }
}

Powers powersOf(double angle) {
    Powers powers;
    for (size_t k = 0; k <= harmonicLanes; ++k) {
        powers.re[k] = static_cast<float>(std::cos(static_cast<double>(k) * angle));
        powers.im[k] = static_cast<float>(std::sin(static_cast<double>(k) * angle));
    }
    return powers;
}

/// A point turned by another, as often as asked.
struct Turned {
    float re;
    float im;

    Turned(const Powers& powers, size_t start, size_t by, size_t times)
        : re(powers.re[start]), im(powers.im[start]) {
        for (; times > 0; --times) {
            const float before = re;
            re = before * powers.re[by] - im * powers.im[by];
            im = before * powers.im[by] + im * powers.re[by];
        }
    }
};

HarmonicSums plainSums(const float* x, size_t reach, size_t num, const Powers& whole, const Powers& quarter) {
    HarmonicSums sums{};
    const size_t parts = harmonicLanes / num;
    for (size_t lane = 0; lane < harmonicLanes; ++lane)
        for (size_t n = lane % parts; n <= reach; n += parts) {
            const Turned slow(quarter, n % harmonicLanes, harmonicLanes, n / harmonicLanes);
            const size_t q = lane / parts + 1;
            const Turned angle(whole, q * (lane % parts), q * parts, n / parts);
            const float even = x[n] + *(x - n);
            const float odd = x[n] - *(x - n);
            const float weight = (n == 0 ? 0.5F : 1.0F) * (0.34F + slow.re * (0.5F + slow.re * 0.16F));
            const float slope = slow.im * (0.125F + slow.re * 0.08F);
            sums.evenCos[lane] += weight * even * angle.re;
            sums.oddSin[lane] += weight * odd * angle.im;
            sums.oddCos[lane] += slope * odd * angle.re;
            sums.evenSin[lane] += slope * even * angle.im;
        }
    return sums;
}

TEST(VoiceHarmonics, EveryVersionEqualsThePlainSums) {
    std::mt19937 random(3); // NOLINT(cert-msc51-cpp)
    for (const size_t reach : {0U, 1U, 15U, 16U, 17U, 100U, 267U})
        for (const size_t num : {4U, 8U}) {
            const Floats x = randomFloats(random, 2 * (reach + harmonicLanes) + 1);
            const float* centre = &x[reach + harmonicLanes];
            const double angle = 4 * std::numbers::pi / static_cast<double>(reach + 1);
            const Powers whole = powersOf(angle);
            const Powers quarter = powersOf(angle / 4);
            const HarmonicSums plain = plainSums(centre, reach, num, whole, quarter);
            Floats work(4 * (reach / harmonicLanes + 1) * harmonicLanes);
            const auto of = []<wavepitch::InstructionSet set> { return harmonicSumsOf<set>; };
            withEveryVersion(of, [&](auto sumsOf, const char* name) {
                HarmonicSums sums{};
                sumsOf({centre, reach, num, &whole, &quarter, work.data()}, sums);
                for (size_t lane = 0; lane < harmonicLanes; ++lane) {
                    EXPECT_EQ(sums.evenCos[lane], plain.evenCos[lane]) << name << ' ' << reach << ' ' << lane;
                    EXPECT_EQ(sums.oddSin[lane], plain.oddSin[lane]) << name << ' ' << reach << ' ' << lane;
                    EXPECT_EQ(sums.oddCos[lane], plain.oddCos[lane]) << name << ' ' << reach << ' ' << lane;
                    EXPECT_EQ(sums.evenSin[lane], plain.evenSin[lane]) << name << ' ' << reach << ' ' << lane;
                }
            });
        }
}

TEST(VoiceRefinement, FindsTheFrequencyFromTheLagBeside) {
    const VOICEPARAM param = at(8000);
    const Layout layout(8000, param);
    for (const double freq : {62.0, 118.5, 251.3, 480.0, 777.0}) {
        const Doubles tone = voiceOf([&](double) { return freq; }, 1, 8000);
        const Floats x(tone.begin(), tone.end());
        for (const double start : {0.97, 1.0, 1.03})
            EXPECT_NEAR(cents(Refinement(layout).refined(&x[4000], start * freq), freq), 0, 1)
                << freq << ' ' << start;
    }
}

using Path = std::vector<std::uint8_t>;
using Loss = std::function<double(double)>;

double scoreOf(const Path& path, const std::vector<VOICECANDIDATES>& frames, const VOICEPARAM& param,
               const Loss& loss) {
    double score = 0;
    double before = 0; // octave of the lag before, 0 where it was unvoiced
    for (size_t i = 0; i < path.size(); ++i) {
        const bool isVoiced = path[i] != unvoiced;
        const double octave = isVoiced ? std::log2(static_cast<double>(frames[i].lag[path[i]])) : 0;
        score += isVoiced ? static_cast<double>(frames[i].strength[path[i]]) - loss(octave)
                          : param.voicingThreshold;
        if (i > 0 && isVoiced != (before > 0)) score -= param.voicingCost;
        if (isVoiced && before > 0) score -= param.lagCost * (octave - before) * (octave - before);
        before = octave;
    }
    return score;
}

/// The best of all paths, each of which is looked at.
Path plainPath(const std::vector<VOICECANDIDATES>& frames, const VOICEPARAM& param, const Loss& loss) {
    Path best;
    size_t paths = 1;
    for (const auto& frame : frames) paths *= static_cast<size_t>(frame.num) + 1;
    for (size_t n = 0; n < paths; ++n) {
        Path path;
        size_t rest = n;
        for (const auto& frame : frames) {
            const auto states = static_cast<size_t>(frame.num) + 1;
            path.push_back(rest % states + 1 == states ? unvoiced : static_cast<std::uint8_t>(rest % states));
            rest /= states;
        }
        if (best.empty() || scoreOf(path, frames, param, loss) > scoreOf(best, frames, param, loss))
            best = path;
    }
    return best;
}

TEST(VoicePath, IsTheBestOfAllPaths) {
    std::mt19937 random(4); // NOLINT(cert-msc51-cpp)
    std::uniform_real_distribution<float> strength(0.2F, 1);
    std::uniform_real_distribution<float> octave(4, 7);
    const VOICEPARAM param = at(8000);
    const Layout layout(600, param);
    for (int run = 0; run < 200; ++run) {
        std::vector<VOICECANDIDATES> frames(5);
        for (auto& frame : frames) {
            frame.num = static_cast<int>(random() % 4);
            for (int k = 0; k < frame.num; ++k) {
                frame.strength[k] = strength(random);
                frame.lag[k] = std::exp2(octave(random));
            }
        }
        const double centre = std::log2(8000 / std::sqrt(60.0 * 800));
        const Path first = plainPath(frames, param, [&](double x) { return 0.1 * (x - centre); });
        std::vector<double> octaves;
        for (size_t i = 0; i < first.size(); ++i)
            if (first[i] != unvoiced)
                octaves.push_back(std::log2(static_cast<double>(frames[i].lag[first[i]])));
        std::sort(octaves.begin(), octaves.end());
        const auto octaveAt = [&](double share) {
            return octaves.empty()
                       ? 0
                       : octaves[static_cast<size_t>(share * static_cast<double>(octaves.size()))];
        };
        const double median = octaveAt(0.5);
        const double low = std::min(median - 0.7, octaveAt(0.1));
        const double high = std::max(median + 0.7, octaveAt(0.9));
        const Path second = plainPath(frames, param, [&](double x) {
            const double far = std::max({0.0, low - x, x - high});
            return 0.05 * (x - median) + 0.2 * far * far;
        });
        EXPECT_EQ(bestPath(frames, layout, {1, true}, param), octaves.empty() ? first : second)
            << "run " << run;
    }
}

} // namespace
