#include "audio/audio.hpp"
#include "support/console.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <complex>
#include <numeric>
#include <random>
#include <vector>

namespace {

using Complexes = std::vector<std::complex<double>>;
constexpr double turn = 6.28318530717958;

/// The butterflies of a block, then those of its half and of its two quarters; in bit-reversed order.
template <typename T>
void plainFft(T* x, T* y, size_t len) {
    const size_t q = len / 4;
    for (size_t j = 0; j < q; ++j) {
        const T a = static_cast<T>(j) * (static_cast<T>(turn) / static_cast<T>(len)), a3 = 3 * a;
        const T r1 = x[j] - x[j + 2 * q], r2 = x[j + q] - x[j + 3 * q];
        const T s1 = y[j] - y[j + 2 * q], s2 = y[j + q] - y[j + 3 * q];
        for (T* v : {x, y}) v[j] += v[j + 2 * q], v[j + q] += v[j + 3 * q];
        x[j + 2 * q] = (r1 + s2) * std::cos(a) - (r2 - s1) * std::sin(a);
        y[j + 2 * q] = -(r2 - s1) * std::cos(a) - (r1 + s2) * std::sin(a);
        x[j + 3 * q] = (r1 - s2) * std::cos(a3) + (r2 + s1) * std::sin(a3);
        y[j + 3 * q] = (r2 + s1) * std::cos(a3) - (r1 - s2) * std::sin(a3);
    }
    for (T* v : {x, y})
        if (const T first = *v; len == 2) v[0] = first + v[1], v[1] = first - v[1];
    if (len < 4) return;
    plainFft(x, y, 2 * q);
    plainFft(x + 2 * q, y + 2 * q, q);
    plainFft(x + 3 * q, y + 3 * q, q);
}

size_t bitReversed(size_t k, size_t size) {
    size_t reversed = 0;
    for (size_t bit = 1; bit < size; bit *= 2, k /= 2) reversed = 2 * reversed + k % 2;
    return reversed;
}

Complexes dft(const Complexes& x) {
    Complexes root(x.size()), sum(x.size());
    for (size_t t = 0; t < x.size(); ++t) root[t] = std::polar(1.0, -turn * double(t) / double(x.size()));
    for (size_t k = 0; k < x.size(); ++k)
        for (size_t t = 0; t < x.size(); ++t) sum[k] += x[t] * root[t * k % x.size()];
    return sum;
}

template <typename T>
std::vector<T> noise(size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<T> values(size);
    for (T& value : values) value = std::uniform_real_distribution<T>(-1, 1)(random);
    return values;
}

template <typename T>
Complexes complexes(const std::vector<T>& x, const std::vector<T>& y) {
    Complexes pairs;
    for (size_t i = 0; i < x.size(); ++i) pairs.emplace_back(x[i], y[i]);
    return pairs;
}

template <typename T>
void equalsThePlainTransformAndTheDft(int n) {
    size_t size = 2;
    while (n > 0 && size < size_t(n)) size *= 2;
    auto x = noise<T>(size, 1), y = noise<T>(size, 2), plainX = x, plainY = y;
    for (auto* v : {&plainX, &plainY}) std::fill(v->begin() + std::max(n, 0), v->end(), T{});
    const Complexes expected = dft(complexes(plainX, plainY));
    plainFft(plainX.data(), plainY.data(), size);
    const ConsoleCapture console;
    fftComplex(x.data(), y.data(), n);
    EXPECT_EQ(console.text(), int(size) == n ? "" : "\nuse " + std::to_string(size) + " point fft") << n;
    const Complexes spectrum = complexes(x, y), plain = complexes(plainX, plainY);
    const double tolerance = 10 * double(size) * double(std::numeric_limits<T>::epsilon());
    for (size_t k = 0; k < size; ++k) {
        ASSERT_EQ(spectrum[k], plain[bitReversed(k, size)]) << n << ' ' << k;
        ASSERT_LT(std::abs(spectrum[k] - expected[k]), tolerance) << n << ' ' << k;
    }
}

TEST(Fft, EqualsThePlainTransformAndTheDft) {
    for (const int power : {INT_MIN + 1, 1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 2048, 4095})
        for (const int n : {power - 1, power, power + 1}) {
            equalsThePlainTransformAndTheDft<float>(n);
            equalsThePlainTransformAndTheDft<double>(n);
        }
}

TEST(Fft, IsLinearKeepsEnergyAndTurnsAShiftIntoAPhase) {
    constexpr size_t size = 1 << 15, shift = 12345;
    auto x = noise<double>(size, 3), y = x, both = x, zero = x;
    const double energy = std::inner_product(x.begin(), x.end(), x.begin(), 0.0);
    std::fill(zero.begin(), zero.end(), 0.0);
    std::rotate(y.begin(), y.begin() + shift, y.end());
    fftComplex(x.data(), zero.data(), size);
    fftComplex(both.data(), y.data(), size); // x + i * (x shifted)
    const Complexes alone = complexes(x, zero), sum = complexes(both, y);
    double spectralEnergy = 0;
    for (size_t k = 0; k < size; ++k) {
        const auto phase = std::polar(1.0, turn * double((k * shift + size / 4) % size) / size);
        ASSERT_LT(std::abs(sum[k] - alone[k] * (1.0 + phase)), 1e-10) << k;
        spectralEnergy += std::norm(alone[k]);
    }
    EXPECT_NEAR(spectralEnergy / size / energy, 1.0, 1e-14);
}

} // namespace
