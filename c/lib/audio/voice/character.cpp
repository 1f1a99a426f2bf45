#include "audio/voice/character.hpp"

#include "audio/voice/sum.hpp"

#include <algorithm>

namespace wavepitch::voice {

namespace {

constexpr double fundamentalTop = 250; // Hz; the fundamentals of speech lie below, a telephone's band above
constexpr std::size_t lowStep = 8;     // one of so many samples is enough for the energy of that part

double energy(const float* x, std::size_t num) {
    return sumOf(num, [x](std::size_t i) {
        const auto value = static_cast<double>(x[i]);
        return value * value;
    });
}

/// The 90 % point of the powers within 30 dB of the largest.
double loudPower(std::vector<double>& powers) {
    const double loudest = *std::max_element(powers.begin(), powers.end());
    const auto behind =
        std::partition(powers.begin(), powers.end(), [&](double p) { return p >= loudest / 1000; });
    const auto point = powers.begin() + (behind - powers.begin() - 1) * 9 / 10;
    std::nth_element(powers.begin(), point, behind);
    return *point;
}

/// The part of the band signal below fundamentalTop, beside the whole.
class LowShare {
public:
    explicit LowShare(const Layout& layout)
        : low(lowPass(fundamentalTop / layout.rate, static_cast<std::size_t>(0.016 * layout.rate)), lowStep) {
    }

    std::size_t reach() const { return low.reach(); }

    /// Adds samples, a multiple of lowStep; reach() more can be read at each side.
    void add(const float* x, std::size_t num) {
        const auto read = [&](std::int64_t start, std::size_t apart, std::size_t count, float* to) {
            for (std::size_t i = 0; i < count; ++i) to[i] = x[start + static_cast<std::int64_t>(i * apart)];
        };
        lowEnergy += energy(low.run(read, 0, num / lowStep), num / lowStep);
        wholeEnergy += energy(x, num);
    }

    bool isAtLeast(double share) const {
        return static_cast<double>(lowStep) * lowEnergy >= share * wholeEnergy;
    }

private:
    Filter low;
    double lowEnergy = 0;
    double wholeEnergy = 0;
};

} // namespace

Character characterOf(Band& band, const Layout& layout, const VOICEPARAM& param) {
    // Where no frequency below is searched, none is missed.
    const bool isAskedFor = param.minFreq < fundamentalTop;
    LowShare lowShare(layout);
    std::vector<double> powers(layout.frameNum);
    const std::size_t frames = layout.framesOfPiece();
    const auto margin = static_cast<std::int64_t>(std::max(lowShare.reach(), layout.windowLen));
    const std::size_t half = layout.windowLen / 2;
    for (std::size_t first = 0; first < layout.frameNum; first += frames) {
        const std::size_t behind = std::min(first + frames, layout.frameNum);
        const std::int64_t from = layout.centre(first);
        const std::int64_t to = layout.centre(behind);
        const auto num = static_cast<std::size_t>(to - from) / lowStep * lowStep;
        const float* x = band.read(from - margin, static_cast<std::size_t>(to - from + 2 * margin)) + margin;
        for (std::size_t i = first; i < behind; ++i)
            powers[i] = energy(x + (layout.centre(i) - from) - half, layout.windowLen) /
                        static_cast<double>(layout.windowLen);
        if (isAskedFor) lowShare.add(x, num);
    }
    return {loudPower(powers), !isAskedFor || lowShare.isAtLeast(param.fundamentalShare)};
}

} // namespace wavepitch::voice
