// Every version of the kernels against the plain loops, bit for bit.
#include "audio/pitchFunction/plain.hpp"
#include "support/audio.hpp"

namespace {

std::mt19937 randomBits(1); // NOLINT(cert-msc51-cpp)

int below(int end) {
    return static_cast<int>(randomBits() % static_cast<unsigned>(end));
}

/// Doubles by kind: ordinary ones, and mixtures with zeros, a denormal, huge values, infinities and NaN.
Doubles samples(size_t size, int kind, double /*instance*/) {
    const double special[] = {0.0, -0.0, -15e-324, 1e308, -1e308, HUGE_VAL, -HUGE_VAL, notANumber};
    const int rarity[] = {INT_MAX, 3, 40, 400};
    Doubles x(size);
    for (double& value : x) {
        value = std::ldexp(static_cast<double>(randomBits()) - 2147483648.0, -40 + below(12));
        if (below(rarity[kind]) == 0) value = special[below(kind == 1 ? 5 : 8)];
    }
    return x;
}

/// Ints by kind: of 8 bits, near the limits of what 32-bit sums take, of 16 bits, any; with runs of the ends
/// of the range, whose sums and differences are the largest.
Ints samples(size_t size, int kind, int /*instance*/) {
    const int bits[] = {8, 11 + below(5), 16, 32};
    const int shift = 32 - bits[kind];
    Ints x(size);
    for (int& value : x) value = static_cast<int>(randomBits()) >> shift;
    for (const int end : {INT_MIN, INT_MAX, INT_MIN})
        if (below(2) > 0) std::fill(x.begin() + below(lengthOf(x)), x.end(), end >> shift);
    return x;
}

struct Case {
    int frames, n, pfLen, type, method, kind;
};

template <typename T>
void compare(const Case& shape) {
    const auto& [frames, n, pfLen, type, method, kind] = shape;
    const int step = 1 + below(n + 3); // to beyond the frame
    const auto wave = samples(static_cast<size_t>((frames - 1) * step + n), kind, T{});
    Doubles expected(static_cast<size_t>(frames * pfLen) + 1, 4711.0);
    Doubles found = expected;
    plainMat(wave, frames, n, step, pfLen, PF_TYPE{type}, method, expected.data());
    wave2pfMat(wave.data(), lengthOf(wave), n, n - step, pfLen, PF_TYPE{type}, method, found.data());
    const auto [at, wanted] = std::mismatch(found.begin(), found.end(), expected.begin(), isSame);
    ASSERT_TRUE(at == found.end()) << sizeof(T)
                                   << "-byte samples; frames, n, step, pfLen, type, method, kind: "
                                   << text(Ints{frames, n, step, pfLen, type, method, kind}) << "; at "
                                   << at - found.begin() << ": " << *at << ", not " << *wanted;
}

/// A number from 1 on, at or beside a power of two: there blocks begin.
int besidePower(int powers) {
    return std::max(1, (1 << below(powers)) + below(4) - 1);
}

/// Frames are fewer where they are long, which nearly all of the time would go into.
Case anyCase() {
    const int n = besidePower(12);
    const int pfLen = besidePower(8);
    const int frames = std::min(besidePower(6), 1 + (1 << 18) / (n * pfLen));
    return {frames, n, pfLen, below(2), 1 + below(4), below(4)};
}

void compareAll() {
    for (int round = 0; round < 3000; ++round) {
        const Case any = anyCase();
        ASSERT_NO_FATAL_FAILURE(compare<double>(any));
        ASSERT_NO_FATAL_FAILURE(compare<int>(any));
    }
}

/// One frame that is longer than its windows are stored for, and than 32-bit sums are wide for.
void compareLong() {
    for (const int n : {16385, 65535, 65536})
        for (const int type : {PF_AMDF, PF_ACF}) {
            ASSERT_NO_FATAL_FAILURE(compare<double>({1, n, 130, type, 1, 1}));
            ASSERT_NO_FATAL_FAILURE(compare<int>({1, n, 130, type, 1, 2}));
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
