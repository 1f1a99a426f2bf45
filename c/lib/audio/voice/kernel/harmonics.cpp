#include "audio/voice/kernel/harmonics.hpp"
#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

using wavepitch::voice::Harmonics;
using wavepitch::voice::HarmonicSums;
using wavepitch::voice::Powers;
using Floats = Lanes<float, ownBytes>;
constexpr std::size_t lanes = ownBytes / sizeof(float);
constexpr std::size_t sumLanes = wavepitch::voice::harmonicLanes;
constexpr std::size_t registers = sumLanes / lanes;

inline Floats floatsAt(const float* from) {
    return load<float, ownBytes>(from);
}

template <std::size_t bytes>
inline Lanes<float, bytes> reversed(const Lanes<float, bytes>& x) {
    if constexpr (bytes == 16)
        return __builtin_shufflevector(x, x, 3, 2, 1, 0);
    else if constexpr (bytes == 32)
        return __builtin_shufflevector(x, x, 7, 6, 5, 4, 3, 2, 1, 0);
    else
        return __builtin_shufflevector(x, x, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0);
}

/// Points on the unit circle, turned step by step.
struct Rotor {
    Floats re;
    Floats im;

    [[gnu::always_inline]] void turn(const Floats& byRe, const Floats& byIm) {
        const Floats turned = re * byRe - im * byIm;
        im = re * byIm + im * byRe;
        re = turned;
    }
};

/// The four products of window and signal, each of `length` values, that the sums are made of.
struct Products {
    float* evenWindowed;
    float* oddWindowed;
    float* oddDerived;
    float* evenDerived;
    std::size_t length;

    explicit Products(const Harmonics& task)
        : evenWindowed(task.work), length((task.reach / sumLanes + 1) * sumLanes) {
        oddWindowed = evenWindowed + length;
        oddDerived = oddWindowed + length;
        evenDerived = oddDerived + length;
    }
};

void window(const Harmonics& task, const Products& products) {
    const Powers& slow = *task.window;
    for (std::size_t r = 0; r < registers; ++r) {
        Rotor angle{floatsAt(slow.re + r * lanes), floatsAt(slow.im + r * lanes)};
        const Floats byRe = Floats{} + slow.re[sumLanes];
        const Floats byIm = Floats{} + slow.im[sumLanes];
        for (std::size_t n = r * lanes; n < products.length; n += sumLanes) {
            const Floats later = floatsAt(task.centre + n);
            const Floats earlier = reversed<ownBytes>(floatsAt(task.centre - n - (lanes - 1)));
            const Floats even = later + earlier;
            const Floats odd = later - earlier;
            const Floats weight = 0.34F + angle.re * (0.5F + angle.re * 0.16F);
            const Floats slope = angle.im * (0.125F + angle.re * 0.08F);
            store(weight * even, products.evenWindowed + n);
            store(weight * odd, products.oddWindowed + n);
            store(slope * odd, products.oddDerived + n);
            store(slope * even, products.evenDerived + n);
            angle.turn(byRe, byIm);
        }
    }
    products.evenWindowed[0] *= 0.5F;
    for (float* product = task.work; product < task.work + 4 * products.length; product += products.length)
        for (std::size_t n = task.reach + 1; n < products.length; ++n) product[n] = 0;
}

/// As many values, over and over.
template <std::size_t parts, std::size_t bytes>
inline Lanes<float, bytes> repeated(const float* from) {
    if constexpr (parts == 2) {
        unsigned long long both;
        __builtin_memcpy(&both, from, sizeof both);
        return reinterpret_cast<Lanes<float, bytes>>(Lanes<unsigned long long, bytes>{} + both);
    } else {
        const auto x = load<float, 16>(from);
        if constexpr (bytes == 16) return x;
        const auto twice = __builtin_shufflevector(x, x, 0, 1, 2, 3, 0, 1, 2, 3);
        if constexpr (bytes == 32) return twice;
        if constexpr (bytes == 64)
            return __builtin_shufflevector(twice, twice, 0, 1, 2, 3, 4, 5, 6, 7, 0, 1, 2, 3, 4, 5, 6, 7);
    }
}

template <std::size_t parts>
void sum(const Harmonics& task, const Products& products, HarmonicSums& sums) {
    const Powers& fundamental = *task.fundamental;
    HarmonicSums start; // angles of the lanes at the first step, and what each step turns them by
    for (std::size_t lane = 0; lane < sumLanes; ++lane) {
        const std::size_t q = lane / parts + 1;
        start.evenCos[lane] = fundamental.re[q * (lane % parts)];
        start.oddSin[lane] = fundamental.im[q * (lane % parts)];
        start.oddCos[lane] = fundamental.re[q * parts];
        start.evenSin[lane] = fundamental.im[q * parts];
    }
    for (std::size_t r = 0; r < sumLanes; r += lanes) {
        Rotor angle{floatsAt(start.evenCos + r), floatsAt(start.oddSin + r)};
        const Floats byRe = floatsAt(start.oddCos + r);
        const Floats byIm = floatsAt(start.evenSin + r);
        Floats evenCos = {};
        Floats oddSin = {};
        Floats oddCos = {};
        Floats evenSin = {};
        for (std::size_t n = 0; n < products.length; n += parts) {
            evenCos += repeated<parts, ownBytes>(products.evenWindowed + n) * angle.re;
            oddSin += repeated<parts, ownBytes>(products.oddWindowed + n) * angle.im;
            oddCos += repeated<parts, ownBytes>(products.oddDerived + n) * angle.re;
            evenSin += repeated<parts, ownBytes>(products.evenDerived + n) * angle.im;
            angle.turn(byRe, byIm);
        }
        store(evenCos, sums.evenCos + r);
        store(oddSin, sums.oddSin + r);
        store(oddCos, sums.oddCos + r);
        store(evenSin, sums.evenSin + r);
    }
}

} // namespace

template <wavepitch::InstructionSet set>
void wavepitch::voice::harmonicSumsOf(const Harmonics& task, HarmonicSums& sums) {
    const Products products(task);
    window(task, products);
    if (task.num == 4)
        sum<4>(task, products, sums);
    else
        sum<2>(task, products, sums);
}

template void wavepitch::voice::harmonicSumsOf<ownSet>(const wavepitch::voice::Harmonics&,
                                                       wavepitch::voice::HarmonicSums&);
