#include "support/audio.hpp"

#include <bit>

namespace {

/// The butterflies of a block, then those of its half and of its two quarters; in bit-reversed order.
template <typename T>
void plainFft(T* x, T* y, size_t len) {
    const size_t q = len / 4;
    for (size_t j = 0; j < q; ++j) {
        const T a = static_cast<T>(j) * (static_cast<T>(6.28318530717958) / static_cast<T>(len)), a3 = 3 * a;
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

template <typename T>
void equalsThePlainTransform(int n) {
    const size_t size = std::bit_ceil(static_cast<unsigned>(std::max(n, 2)));
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp)
    std::vector<T> x(size), y(size);
    for (auto* v : {&x, &y})
        for (T& value : *v) value = std::uniform_real_distribution<T>(-1, 1)(random);
    auto plainX = x, plainY = y;
    for (auto* v : {&plainX, &plainY}) std::fill(v->begin() + std::max(n, 0), v->end(), T{});
    plainFft(plainX.data(), plainY.data(), size);
    const ConsoleCapture console;
    fftComplex(x.data(), y.data(), n);
    EXPECT_EQ(console.text(), int(size) == n ? "" : "\nuse " + std::to_string(size) + " point fft") << n;
    for (size_t k = 0; k < size; ++k) {
        const size_t from = bitReversed(k, size);
        ASSERT_EQ(std::pair(x[k], y[k]), std::pair(plainX[from], plainY[from])) << n << ' ' << k;
    }
}

TEST(Fft, EqualsThePlainTransform) {
    for (const int power : {INT_MIN + 1, 1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 2048, 4095})
        for (const int n : {power - 1, power, power + 1}) {
            equalsThePlainTransform<float>(n);
            equalsThePlainTransform<double>(n);
        }
}

} // namespace
