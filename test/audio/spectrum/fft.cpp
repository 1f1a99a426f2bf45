#include "support/audio.hpp"

#include <complex>

namespace {

template <typename T>
void becomesAPhasor(int size, int at) {
    std::vector<T> real(size_t(size), 0);
    std::vector<T> imag(real);
    real[size_t(at)] = 3;
    imag[size_t(at)] = 4;
    fftComplex(real.data(), imag.data(), size);
    for (size_t k = 0; k < real.size(); ++k) {
        const double turn = -2 * std::acos(-1.0) * double(k) * at / size;
        const auto expected = std::complex(3.0, 4.0) * std::polar(1.0, turn);
        EXPECT_NEAR(double(real[k]), expected.real(), 1e-5) << size << ", " << at << ": bin " << k;
        EXPECT_NEAR(double(imag[k]), expected.imag(), 1e-5) << size << ", " << at << ": bin " << k;
    }
}

TEST(Fft, AnImpulseBecomesAPhasor) {
    for (const int size : {2, 4, 8, 16, 32})
        for (int at = 0; at < size; ++at) becomesAPhasor<float>(size, at);
    for (const int at : {1, 600, 4095}) becomesAPhasor<double>(4096, at);
}

TEST(Fft, PadsWithZerosAndSaysSo) {
    Doubles real{1, 2, 3, 9};
    Doubles imag{0, 0, 0, 9};
    const ConsoleCapture console;
    fftComplex(real.data(), imag.data(), 3);
    EXPECT_EQ(text(real), "6 -2 2 -2");
    EXPECT_EQ(text(imag), "0 -2 0 2");
    fftComplex(real.data(), imag.data(), INT_MIN);
    EXPECT_EQ(text(real), "0 0 2 -2");
    EXPECT_EQ(console.text(), "\nuse 4 point fft\nuse 2 point fft");
}

} // namespace
