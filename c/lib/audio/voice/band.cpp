#include "audio/voice/band.hpp"

#include "utility/interruption.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

namespace wavepitch::voice {

namespace {

constexpr std::size_t cubic = 4; // samples that one is interpolated from

// Reach of the filters at each side, in periods of their cutoff: the low-pass falls from 3/4 to 5/4 of the
// band's top, the high-pass from twice the lowest frequency on.
constexpr double lowReach = 4;
constexpr double slowReach = 0.96;

std::size_t slowStep(double rate, double lowestFreq) {
    return static_cast<std::size_t>(std::clamp(rate / (16 * lowestFreq), 1.0, 8.0));
}

std::size_t tapsFor(double seconds, double rate) {
    return static_cast<std::size_t>(std::ceil(seconds * rate));
}

/// The weights of the samples -1, 0, 1, 2 at the places between 0 and 1 (Lagrange), weight by weight.
std::vector<float> cubicWeights(std::size_t places) {
    std::vector<float> weights(cubic * places);
    for (std::size_t p = 0; p < places; ++p) {
        const double x = static_cast<double>(p) / static_cast<double>(places);
        const double at[cubic] = {-x * (x - 1) * (x - 2) / 6, (x + 1) * (x - 1) * (x - 2) / 2,
                                  -(x + 1) * x * (x - 2) / 2, (x + 1) * x * (x - 1) / 6};
        for (std::size_t k = 0; k < cubic; ++k) weights[k * places + p] = static_cast<float>(at[k]);
    }
    return weights;
}

/// Quotient rounded down.
std::int64_t floorOf(std::int64_t a, std::int64_t b) {
    return (a >= 0 ? a : a - b + 1) / b;
}

} // namespace

BandFilter::BandFilter(const Source& recording, const Layout& layout, double lowestFreq)
    : source(recording), decimation(layout.decimation),
      low(lowPass(layout.bandTop / (layout.rate * static_cast<double>(layout.decimation)),
                  tapsFor(lowReach / layout.bandTop, layout.rate) * layout.decimation),
          layout.decimation),
      slowPart(lowPass(lowestFreq / layout.rate, tapsFor(slowReach / lowestFreq, layout.rate)),
               slowStep(layout.rate, lowestFreq)),
      cubics(cubicWeights(slowPart.step())) {}

void BandFilter::run(std::int64_t first, std::size_t num, float* out) {
    utility::askForInterruption();
    const auto step = static_cast<std::int64_t>(slowPart.step());
    const auto reach = static_cast<std::int64_t>(slowPart.reach());
    const std::int64_t firstSlow = floorOf(first, step) - 1;
    const std::int64_t lastSlow = floorOf(first + static_cast<std::int64_t>(num) - 1, step) + 2;
    const auto slowNum = static_cast<std::size_t>(lastSlow - firstSlow + 1);
    const std::int64_t from = firstSlow * step - reach;
    wide.resize(slowNum * slowPart.step() + 2 * slowPart.reach());
    const auto read = [&](std::int64_t start, std::size_t apart, std::size_t count, float* to) {
        source.read(start, apart, count, to);
    };
    const float* lowPassed = low.run(read, from * static_cast<std::int64_t>(decimation), wide.size());
    std::copy_n(lowPassed, wide.size(), wide.data());
    const auto readWide = [&](std::int64_t start, std::size_t apart, std::size_t count, float* to) {
        const float* x = wide.data() + start;
        for (std::size_t i = 0; i < count; ++i) to[i] = x[i * apart];
    };
    const float* slow = slowPart.run(readWide, reach, slowNum);
    std::copy_n(wide.data() + (first - from), num, out);
    subtractSlow(slow + 1, first - (firstSlow + 1) * step, num, out);
}

/// @param slow   the slow part from the last of its samples that is not behind the first of out.
/// @param first  the place of the first of out behind it.
void BandFilter::subtractSlow(const float* slow, std::int64_t first, std::size_t num, float* out) const {
    const std::size_t places = slowPart.step();
    const float* weights = cubics.data();
    for (std::size_t done = 0, p = static_cast<std::size_t>(first); done < num; p = 0, ++slow) {
        const std::size_t count = std::min(places - p, num - done);
        for (std::size_t i = 0; i < count; ++i) {
            const float* w = weights + p + i;
            out[done + i] -=
                w[0] * slow[-1] + w[places] * slow[0] + w[2 * places] * slow[1] + w[3 * places] * slow[2];
        }
        done += count;
    }
}

namespace {

constexpr std::size_t pieceLen = 8192; // formed at a time

} // namespace

Band::Band(BandFilter filterToUse, const Layout& layout, std::size_t most) : filter(std::move(filterToUse)) {
    const auto decimation = static_cast<std::int64_t>(layout.decimation);
    // Frames reach beyond the recording by their windows, those of refinement too.
    const auto margin = static_cast<std::int64_t>(layout.span() + 3 * layout.maxLag());
    const std::int64_t end = layout.waveLen / decimation + margin;
    keptFrom = -margin;
    const std::size_t num = std::min(static_cast<std::size_t>(end - keptFrom), most);
    kept.resize(num);
    for (std::size_t i = 0; i < num; i += pieceLen)
        filter.run(keptFrom + static_cast<std::int64_t>(i), std::min(pieceLen, num - i), kept.data() + i);
}

const float* Band::read(std::int64_t first, std::size_t num) {
    utility::askForInterruption();
    const std::int64_t end = first + static_cast<std::int64_t>(num);
    if (first >= keptFrom && end <= keptFrom + static_cast<std::int64_t>(kept.size()))
        return kept.data() + (first - keptFrom);
    piece.resize(num);
    filter.run(first, num, piece.data());
    return piece.data();
}

} // namespace wavepitch::voice
