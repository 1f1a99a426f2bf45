#include "audio/voice/refinement.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace wavepitch::voice {

namespace {

// The window reaches two periods to each side, for high voices a time in which noise averages out.
constexpr double periodsAside = 2;
constexpr double leastAside = 0.004; // seconds
constexpr double mostChange = 0.2;   // of the frequency, in a step

/// Samples at each side, not whole, that the window for a frequency reaches.
double asideOf(double freq, double rate) {
    return std::max(periodsAside / freq, leastAside) * rate;
}

Powers powersOf(double angle) {
    const double re = std::cos(angle);
    const double im = std::sin(angle);
    double powerRe = 1;
    double powerIm = 0;
    Powers powers;
    for (std::size_t k = 0; k <= harmonicLanes; ++k) {
        powers.re[k] = static_cast<float>(powerRe);
        powers.im[k] = static_cast<float>(powerIm);
        const double turned = powerRe * re - powerIm * im;
        powerIm = powerRe * im + powerIm * re;
        powerRe = turned;
    }
    return powers;
}

double sumOfParts(const float* lanes, std::size_t parts) {
    double sum = 0;
    for (std::size_t p = 0; p < parts; ++p) sum += static_cast<double>(lanes[p]);
    return sum;
}

} // namespace

Refinement::Refinement(const Layout& layout)
    : rate(layout.rate), bandTop(layout.bandTop), kernel(harmonicSums()) {
    // The first step may lower the frequency, which makes the window longer.
    const double lowest = (1 - mostChange) * rate / static_cast<double>(layout.maxLag());
    const auto most = static_cast<std::size_t>(asideOf(lowest, rate));
    work.resize(4 * (most / harmonicLanes + 1) * harmonicLanes);
}

double Refinement::step(const float* centre, double freq, std::size_t harmonics) {
    const double aside = asideOf(freq, rate);
    const Powers fundamental = powersOf(2 * std::numbers::pi * freq / rate);
    const Powers window = powersOf(std::numbers::pi / aside);
    HarmonicSums sums;
    kernel({.centre = centre,
            .reach = static_cast<std::size_t>(aside),
            .num = harmonics,
            .fundamental = &fundamental,
            .window = &window,
            .work = work.data()},
           sums);
    const std::size_t parts = harmonicLanes / harmonics;
    // The sums stand for the window's derivative by four times its angle, pi / aside.
    const double unit = 2 * rate / (aside * freq);
    double frequencies = 0; // in units of freq
    double numbers = 0;
    for (std::size_t q = 1; q <= harmonics && static_cast<double>(q) * freq <= bandTop; ++q) {
        const std::size_t lane = (q - 1) * parts;
        const double evenCos = sumOfParts(sums.evenCos + lane, parts);
        const double oddSin = sumOfParts(sums.oddSin + lane, parts);
        const double power = evenCos * evenCos + oddSin * oddSin;
        if (!(power > 0)) continue;
        const double offset = (sumOfParts(sums.evenSin + lane, parts) * evenCos -
                               sumOfParts(sums.oddCos + lane, parts) * oddSin) /
                              power;
        const double magnitude = std::sqrt(power);
        frequencies += magnitude * (static_cast<double>(q) - offset * unit);
        numbers += magnitude * static_cast<double>(q);
    }
    const double change = numbers > 0 ? frequencies / numbers : 1;
    return std::abs(change - 1) <= mostChange ? freq * change : freq;
}

double Refinement::refined(const float* centre, double freq) {
    return step(centre, step(centre, freq, 4), 8);
}

void refine(const std::vector<std::uint8_t>& path, const std::vector<VOICECANDIDATES>& candidates, Band& band,
            const Layout& layout, const Results& results) {
    Refinement refinement(layout);
    // On voices whose pitch is known, the frequencies a millisecond later have the smallest error.
    const auto delay = static_cast<std::int64_t>(std::llround(0.001 * layout.rate));
    const auto reach = static_cast<std::int64_t>(refinement.reach());
    const std::size_t frames = layout.framesOfPiece();
    for (std::size_t first = 0; first < layout.frameNum; first += frames) {
        const std::size_t last = std::min(first + frames, layout.frameNum) - 1;
        const std::int64_t from = layout.centre(first) + delay - reach;
        const std::int64_t to = layout.centre(last) + delay + reach;
        const float* x = band.read(from, static_cast<std::size_t>(to - from) + 1);
        for (std::size_t i = first; i <= last; ++i) {
            if (path[i] == unvoiced) continue;
            const VOICECANDIDATES& frame = candidates[i];
            const double freq = layout.rate / static_cast<double>(frame.lag[path[i]]);
            results.f0[i] = refinement.refined(x + (layout.centre(i) + delay - from), freq);
            if (results.strength)
                results.strength[i] = std::clamp(static_cast<double>(frame.strength[path[i]]), 0.0, 1.0);
        }
    }
}

} // namespace wavepitch::voice
