// Every version of the kernels against the plain loops, bit for bit.
#include "audio/pitchFunction/plain.hpp"
#include "support/audio.hpp"

namespace {

std::mt19937 randomBits(1); // NOLINT(cert-msc51-cpp)

int below(int end) {
    return static_cast<int>(randomBits() % static_cast<unsigned>(end));
}

/// Doubles by kind: ordinary ones, and mixtures with zeros, denormals, huge values, infinities and NaN.
Doubles samples(size_t size, int kind, double /*instance*/) {
    const double special[] = {0.0,  -0.0, 5e-324,   -15e-324,  1e308,     -1e308,
                              1e-3, -7.5, HUGE_VAL, -HUGE_VAL, notANumber};
    const int kinds[] = {0, 6, 11, 11}; // how many of them occur
    Doubles x(size);
    for (double& value : x) {
        value = std::ldexp(static_cast<double>(randomBits()) - 2147483648.0, -40 + below(12));
        if (kinds[kind] > 0 && below(kind == 3 ? 40 : 3) == 0) value = special[below(kinds[kind])];
    }
    return x;
}

/// Ints by kind: of 8 bits, near the limits of what 32-bit sums take, of 16 bits, any; with runs of the ends
/// of the range, whose sums and differences are the largest.
Ints samples(size_t size, int kind, int /*instance*/) {
    const int bits[] = {8, 11 + below(5), 16, 32};
    Ints x(size);
    for (int& value : x) value = static_cast<int>(randomBits()) >> (32 - bits[kind]);
    const int highest = static_cast<int>((1U << (bits[kind] - 1)) - 1);
    for (size_t part = 0, parts = randomBits() % 5; part < parts; ++part)
        std::fill(x.begin() + below(lengthOf(x)), x.end(), part % 2 ? highest : -highest - 1);
    return x;
}

struct Shape {
    int frames, n, step, pfLen, type, method;
};

template <typename T>
void compare(const Shape& s, int kind) {
    const auto wave = samples(static_cast<size_t>((s.frames - 1) * s.step + s.n), kind, T{});
    Doubles expected(static_cast<size_t>(s.frames * s.pfLen) + 1, 4711.0);
    Doubles found = expected;
    plainMat(wave, s.frames, s.n, s.step, s.pfLen, PF_TYPE{s.type}, s.method, expected.data());
    wave2pfMat(wave.data(), lengthOf(wave), s.n, s.n - s.step, s.pfLen, PF_TYPE{s.type}, s.method,
               found.data());
    const auto [at, wanted] = std::mismatch(found.begin(), found.end(), expected.begin(), isSame);
    ASSERT_TRUE(at == found.end()) << sizeof(T) << "-byte samples, frames=" << s.frames << " n=" << s.n
                                   << " step=" << s.step << " pfLen=" << s.pfLen << " type=" << s.type
                                   << " method=" << s.method << " kind=" << kind << " at "
                                   << at - found.begin() << ": " << *at << ", not " << *wanted;
}

/// Frame sizes, lags and frame counts around every block size, and large frames at the limits of 32-bit sums;
/// steps from 1 to beyond the frame; type, method and kind of samples by chance.
void compareAll() {
    for (const int n : {1, 2, 3, 7, 8, 9, 15, 17, 31, 33, 63, 64, 65, 66, 82, 130, 520, 2100})
        for (const int pfLen : {1, 7, 8, 9, 15, 16, 17, 31, 32, 33, 63, 64, 65, 66, 130})
            for (const int frames : {1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 34}) {
                if (n > 130 && ((frames > 2 && frames < 15) || pfLen % 2)) continue;
                const Shape s{frames, n, 1 + below(n + 3), pfLen, below(2), 1 + below(4)};
                ASSERT_NO_FATAL_FAILURE(compare<double>(s, below(4)));
                ASSERT_NO_FATAL_FAILURE(compare<int>(s, below(4)));
            }
}

/// One frame that is longer than its windows are stored for, and than 32-bit sums are wide for.
void compareLong() {
    for (const int n : {16385, 65535, 65536})
        for (const int type : {PF_AMDF, PF_ACF}) {
            const Shape s{1, n, n, 130, type, 1};
            ASSERT_NO_FATAL_FAILURE(compare<double>(s, 1));
            ASSERT_NO_FATAL_FAILURE(compare<int>(s, 2));
        }
}

TEST(PitchFunctionKernel, EveryVersionEqualsThePlainLoops) {
    withEveryKernel([](const char* version) {
        SCOPED_TRACE(version);
        compareAll();
        compareLong();
    });
}

} // namespace
