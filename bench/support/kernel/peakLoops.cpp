// Twelve sums are in flight, nothing is loaded; the empty asm statements keep each operation in the loop.
#include "support/peak.hpp"

#include "utility/kernel/version.hpp"

#include <cstddef>
#include <utility>

#if WAVEPITCH_VECTOR_BYTES > 16
#include <immintrin.h>
#endif

namespace {

typedef double Doubles __attribute__((vector_size(WAVEPITCH_VECTOR_BYTES)));
typedef long long Bits __attribute__((vector_size(WAVEPITCH_VECTOR_BYTES)));

constexpr std::size_t sums = 12;
constexpr std::size_t termsPerRound = sums * sizeof(Doubles) / sizeof(double);

struct MultiplyAdd {
    [[gnu::always_inline]] void operator()(Doubles& sum, Doubles& x) const {
        asm("" : "+v"(x));
        sum += x * x;
    }
};

struct SubtractAdd {
    Doubles one = Doubles{} + 1.0;

    [[gnu::always_inline]] void operator()(Doubles& sum, Doubles& x) const {
        asm("" : "+v"(x));
#if WAVEPITCH_VECTOR_BYTES == 64
        const Doubles difference = _mm512_fmsub_pd(one, x, x);
#elif WAVEPITCH_VECTOR_BYTES == 32
        const Doubles difference = _mm256_fmsub_pd(one, x, x);
#else
        const Doubles difference = x - x;
#endif
        const Bits magnitude = reinterpret_cast<Bits>(difference) & 0x7fffffffffffffff;
        sum += reinterpret_cast<Doubles>(magnitude);
    }
};

template <typename Term, std::size_t... k>
double add(Term term, std::size_t rounds, std::index_sequence<k...> /*all*/) {
    Doubles sum[sums] = {};
    Doubles x = Doubles{} + 1e-3;
    for (std::size_t i = 0; i < rounds; ++i) (term(sum[k], x), ...);
    Doubles total = {};
    ((total += sum[k]), ...);
    return total[0];
}

double multiplyAdds(std::size_t rounds) {
    return add(MultiplyAdd{}, rounds, std::make_index_sequence<sums>{});
}

double subtractAdds(std::size_t rounds) {
    SubtractAdd term;
    asm("" : "+v"(term.one)); // not a constant, or the multiplication by it goes away
    return add(term, rounds, std::make_index_sequence<sums>{});
}

} // namespace

template <wavepitch::InstructionSet set>
PeakLoops peakLoopsOf() {
    return {multiplyAdds, subtractAdds, termsPerRound};
}

template PeakLoops peakLoopsOf<ownSet>();
