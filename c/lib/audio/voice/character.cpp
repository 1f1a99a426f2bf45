#include "audio/voice/character.hpp"

#include <algorithm>
#include <array>

namespace wavepitch::voice {

namespace {

constexpr double fundamentalTop = 250; // Hz; the fundamentals of speech lie below, a telephone's band above
constexpr std::size_t lowStep = 8;     // of 1000 samples a second, enough for the energy of that part
constexpr std::size_t pieceLen = 8192;
constexpr std::size_t parts = 8; // of a sum, side by side: its order does not depend on the instruction set

double energy(const float* x, std::size_t num) {
    std::array<double, parts> sums{};
    const std::size_t whole = num - num % parts;
    for (std::size_t i = 0; i < whole; i += parts)
        for (std::size_t k = 0; k < parts; ++k) {
            const double value = static_cast<double>(x[i + k]);
            sums[k] += value * value;
        }
    for (std::size_t i = whole; i < num; ++i)
        sums[i - whole] += static_cast<double>(x[i]) * static_cast<double>(x[i]);
    double sum = 0;
    for (const double part : sums) sum += part;
    return sum;
}

double loudPowerOf(Band& band, const Layout& layout) {
    std::vector<double> powers(layout.frameNum);
    const std::size_t frames = layout.framesOfPiece();
    for (std::size_t first = 0; first < layout.frameNum; first += frames) {
        const std::size_t behind = std::min(first + frames, layout.frameNum);
        const std::int64_t from = layout.centre(first);
        const auto half = static_cast<std::int64_t>(layout.windowLen / 2);
        const float* x = band.read(from - half, static_cast<std::size_t>(layout.centre(behind - 1) - from) +
                                                    layout.windowLen);
        for (std::size_t i = first; i < behind; ++i)
            powers[i] = energy(x + (layout.centre(i) - from), layout.windowLen) /
                        static_cast<double>(layout.windowLen);
    }
    const double loudest = *std::max_element(powers.begin(), powers.end());
    const auto behind =
        std::partition(powers.begin(), powers.end(), [&](double p) { return p >= loudest / 1000; });
    const auto num = behind - powers.begin();
    const auto point = powers.begin() + (num - 1) * 9 / 10;
    std::nth_element(powers.begin(), point, behind);
    return *point;
}

/// The share of the band signal's energy below fundamentalTop.
double lowShare(Band& band, const Layout& layout) {
    Filter low(lowPass(fundamentalTop / layout.rate, static_cast<std::size_t>(0.016 * layout.rate)), lowStep);
    const std::size_t reach = low.reach();
    const std::int64_t end = layout.waveLen / static_cast<std::int64_t>(layout.decimation) + 1;
    double lowEnergy = 0;
    double whole = 0;
    for (std::int64_t first = 0; first < end; first += pieceLen) {
        const float* x = band.read(first - static_cast<std::int64_t>(reach), pieceLen + 2 * reach);
        const auto read = [&](std::int64_t start, std::size_t apart, std::size_t count, float* to) {
            for (std::size_t i = 0; i < count; ++i) to[i] = x[start + static_cast<std::int64_t>(i * apart)];
        };
        const float* y = low.run(read, static_cast<std::int64_t>(reach), pieceLen / lowStep);
        lowEnergy += energy(y, pieceLen / lowStep);
        whole += energy(x + reach, pieceLen);
    }
    return whole > 0 ? static_cast<double>(lowStep) * lowEnergy / whole : 0;
}

} // namespace

Character characterOf(Band& band, const Layout& layout, const VOICEPARAM& param) {
    // Where no frequency below is searched, none is missed.
    const bool hasFundamental =
        param.minFreq >= fundamentalTop || lowShare(band, layout) >= param.fundamentalShare;
    return {loudPowerOf(band, layout), hasFundamental};
}

} // namespace wavepitch::voice
