#include "support/audio.hpp"

#include <complex>

namespace {

void becomesAPhasor(int size, int at) {
    Doubles real(size_t(size), 0);
    Doubles imag(real);
    real[size_t(at)] = 3;
    imag[size_t(at)] = 4;
    fftComplex(real.data(), imag.data(), size);
    for (int k = 0; k < size; ++k) {
        const double turn = -2 * std::acos(-1.0) * k * at / size;
        const auto expected = std::complex(3.0, 4.0) * std::polar(1.0, turn);
        const std::complex bin(real[size_t(k)], imag[size_t(k)]);
        EXPECT_LT(std::abs(bin - expected), 1e-9) << size << ", " << at << ": bin " << k;
    }
}

TEST(Fft, AnImpulseBecomesAPhasor) {
    for (const int size : {2, 4, 8, 16, 32})
        for (int at = 0; at < size; ++at) becomesAPhasor(size, at);
    for (const int at : {1, 600, 4095}) becomesAPhasor(4096, at);
}

TEST(Fft, PadsWithZerosAndSaysSo) {
    std::vector<float> real{1, 2, 3, 9};
    std::vector<float> imag{0, 0, 0, 9};
    const ConsoleCapture console;
    fftComplex(real.data(), imag.data(), 3);
    EXPECT_EQ(text(real), "6 -2 2 -2");
    EXPECT_EQ(text(imag), "0 -2 0 2");
    fftComplex(real.data(), imag.data(), INT_MIN);
    EXPECT_EQ(text(real), "0 0 2 -2");
    EXPECT_EQ(console.text(), "\nuse 4 point fft\nuse 2 point fft");
}

} // namespace
