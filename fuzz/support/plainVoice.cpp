#include "support/plainVoice.hpp"

#include <vector>

namespace {

using namespace wavepitch::voice;

/// The energies of one frame's windows, with the floor.
std::vector<float> energiesOf(const Correlation& task, const float* x) {
    const auto square = [x](std::size_t t) { return static_cast<double>(x[t]) * static_cast<double>(x[t]); };
    double sum = 0;
    for (std::size_t t = 0; t < task.windowLen; ++t) sum += square(t);
    std::vector<float> energies{static_cast<float>(sum + task.floor)};
    for (std::size_t t = 1; t < task.firstLag + task.lagNum; ++t) {
        sum += square(t - 1 + task.windowLen) - square(t - 1);
        energies.push_back(static_cast<float>(sum + task.floor));
    }
    return energies;
}

/// A point on the unit circle and the step that it turns by.
struct Rotor {
    float re, im, byRe, byIm;

    void turn() {
        const float turned = re * byRe - im * byIm;
        im = re * byIm + im * byRe;
        re = turned;
    }
};

/// The products of window and signal.
struct Windowed {
    std::vector<float> even, odd, oddDerived, evenDerived;

    explicit Windowed(std::size_t length)
        : even(length), odd(length), oddDerived(length), evenDerived(length) {}
};

Windowed windowed(const Harmonics& task) {
    const Powers& slow = *task.window;
    const auto reach = static_cast<std::ptrdiff_t>(task.reach);
    Windowed products((task.reach / harmonicLanes + 1) * harmonicLanes);
    for (std::size_t lane = 0; lane < harmonicLanes; ++lane) {
        Rotor angle{slow.re[lane], slow.im[lane], slow.re[harmonicLanes], slow.im[harmonicLanes]};
        for (auto n = static_cast<std::ptrdiff_t>(lane); n <= reach; n += harmonicLanes, angle.turn()) {
            const float even = task.centre[n] + task.centre[-n];
            const float odd = task.centre[n] - task.centre[-n];
            const float weight = 0.34F + angle.re * (0.5F + angle.re * 0.16F);
            const float slope = angle.im * (0.125F + angle.re * 0.08F);
            const auto i = static_cast<std::size_t>(n);
            products.even[i] = weight * even;
            products.odd[i] = weight * odd;
            products.oddDerived[i] = slope * odd;
            products.evenDerived[i] = slope * even;
        }
    }
    products.even[0] *= 0.5F;
    return products;
}

} // namespace

void plainCorrelation(const Correlation& task) {
    const std::size_t lastLag = task.firstLag + task.lagNum - 1;
    for (std::size_t f = 0; f < correlationFrames; ++f) {
        const float* x = task.spans[f];
        const std::vector<float> energies = energiesOf(task, x);
        std::vector<float> values;
        for (std::size_t lag = task.firstLag; lag <= lastLag; ++lag) {
            const std::size_t start = (task.windowLen + lastLag) / 2 - (task.windowLen + lag) / 2;
            float sum = 0;
            for (std::size_t j = 0; j < task.windowLen; ++j) sum += x[start + j] * x[start + lag + j];
            values.push_back((sum + sum) / (energies[start] + energies[start + lag]));
        }
        for (std::size_t row = 0; row < task.lagNum; ++row) {
            task.values[row * correlationFrames + f] = values[row];
            unsigned& bits = task.maximumBits[row / 32 * correlationFrames + f];
            if (row % 32 == 0) bits = 0;
            if (row == 0 || row + 1 == task.lagNum) continue;
            if (values[row] > task.threshold && values[row] > values[row - 1] &&
                values[row] >= values[row + 1])
                bits |= 1U << row % 32;
        }
    }
}

void plainFilter(const Filtering& filtering) {
    const auto sample = [&](std::size_t i) {
        return filtering.phases[i % filtering.step][i / filtering.step];
    };
    for (std::size_t i = 0; i < filtering.num; ++i) {
        const std::size_t centre = filtering.reach + i * filtering.step;
        float sum = filtering.taps[0] * sample(centre);
        for (std::size_t k = 1; k <= filtering.reach; ++k)
            sum += filtering.taps[k] * (sample(centre - k) + sample(centre + k));
        filtering.out[i] = sum;
    }
}

void plainHarmonics(const Harmonics& task, HarmonicSums& sums) {
    const Windowed products = windowed(task);
    const Powers& powers = *task.fundamental;
    const std::size_t parts = harmonicLanes / task.num;
    for (std::size_t lane = 0; lane < harmonicLanes; ++lane) {
        const std::size_t q = lane / parts + 1;
        const std::size_t p = lane % parts;
        Rotor angle{powers.re[q * p], powers.im[q * p], powers.re[q * parts], powers.im[q * parts]};
        float sum[4] = {};
        for (std::size_t n = p; n < products.even.size(); n += parts, angle.turn()) {
            sum[0] += products.even[n] * angle.re;
            sum[1] += products.odd[n] * angle.im;
            sum[2] += products.oddDerived[n] * angle.re;
            sum[3] += products.evenDerived[n] * angle.im;
        }
        sums.evenCos[lane] = sum[0];
        sums.oddSin[lane] = sum[1];
        sums.oddCos[lane] = sum[2];
        sums.evenSin[lane] = sum[3];
    }
}
