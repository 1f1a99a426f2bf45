// The sums are of integers, so their order is free and every width gives the same value.

#include "audio/endPoint/kernel/frameKernel.hpp"
#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

/// Adds unsigned 32-bit lanes to 64-bit lanes that are half as many.
template <std::size_t bytes>
inline void accumulate(Lanes<std::uint64_t, bytes>& sum, Lanes<std::uint32_t, bytes> values) {
    const auto pairs = reinterpret_cast<Lanes<std::uint64_t, bytes>>(values);
    sum += (pairs & 0xFFFFFFFFU) + (pairs >> 32U);
}

inline std::uint32_t distance(int a, int b) {
    return a > b ? static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b)
                 : static_cast<std::uint32_t>(b) - static_cast<std::uint32_t>(a);
}

template <std::size_t bytes>
std::int64_t deviation(const int* frame, std::size_t frameSize, int centre) {
    using Unsigned = Lanes<std::uint32_t, bytes>;
    constexpr std::size_t lanes = bytes / sizeof(int);
    Lanes<std::uint64_t, bytes> sums{};
    std::size_t i = 0;
    for (; i + lanes <= frameSize; i += lanes) {
        const auto x = load<int, bytes>(frame + i);
        const auto below =
            reinterpret_cast<Unsigned>(x < centre); // all ones where the difference is negative
        const auto difference = reinterpret_cast<Unsigned>(x) - static_cast<std::uint32_t>(centre);
        accumulate<bytes>(sums, (difference ^ below) - below);
    }
    auto sum = sumOfLanes<std::uint64_t, bytes>(sums);
    for (; i < frameSize; ++i) sum += distance(frame[i], centre);
    return static_cast<std::int64_t>(sum);
}

/// @tparam Count  the integer of the element's size.
template <typename Element, typename Count, std::size_t bytes>
int crossings(const Element* frame, std::size_t frameSize) {
    constexpr std::size_t lanes = bytes / sizeof(Element);
    Lanes<Count, bytes> counts{};
    std::size_t i = 1;
    for (; i + lanes <= frameSize; i += lanes) {
        const auto before = load<Element, bytes>(frame + i - 1);
        const auto here = load<Element, bytes>(frame + i);
        const auto crossed = ((before > 0) & (here < 0)) | ((before < 0) & (here > 0));
        counts -= reinterpret_cast<Lanes<Count, bytes>>(crossed);
    }
    auto count = static_cast<int>(sumOfLanes<Count, bytes>(counts));
    for (; i < frameSize; ++i)
        count += (frame[i - 1] > 0 && frame[i] < 0) || (frame[i - 1] < 0 && frame[i] > 0) ? 1 : 0;
    return count;
}

/// The difference of an order, from order + 1 neighbours: neighbours are subtracted order times over. Lanes
/// may wrap around on the way; a difference that fits is right.
template <int order, typename Value, typename Load>
[[gnu::always_inline]] inline Value difference(Load valueAt) {
    Value values[order + 1];
#pragma GCC unroll 8
    for (std::size_t j = 0; j <= order; ++j) values[j] = valueAt(j);
#pragma GCC unroll 8
    for (std::size_t left = order; left > 0; --left)
#pragma GCC unroll 8
        for (std::size_t j = 0; j < left; ++j) values[j] = values[j + 1] - values[j];
    return values[0];
}

/// Absolute differences that start at first and after it, each counted as at most 2^31 - 1.
template <int order>
std::int64_t wideDifferences(const int* frame, std::size_t frameSize, std::size_t first) {
    constexpr std::int64_t most = INT32_MAX;
    std::int64_t sum = 0;
    for (std::size_t i = first; i + order < frameSize; ++i) {
        const auto d = difference<order, std::int64_t>([&](std::size_t j) { return frame[i + j]; });
        const std::int64_t size = d < 0 ? -d : d;
        sum += size < most ? size : most;
    }
    return sum;
}

/// In 32-bit lanes, which hold the differences of samples below 2^26; frames with larger samples are summed
/// again, wider.
template <int order, std::size_t bytes>
std::int64_t differencesOfOrder(const int* frame, std::size_t frameSize) {
    using Unsigned = Lanes<std::uint32_t, bytes>;
    constexpr std::size_t lanes = bytes / sizeof(int);
    Lanes<std::uint64_t, bytes> sums{};
    Lanes<int, bytes> magnitudes{}; // all bits that any sample needs, but for the sign
    std::size_t i = 0;
    for (; i + lanes + order <= frameSize; i += lanes) {
        const auto x = load<int, bytes>(frame + i);
        magnitudes |= x ^ (x >> 31);
        const auto d = difference<order, Unsigned>(
            [&](std::size_t j) { return reinterpret_cast<Unsigned>(load<int, bytes>(frame + i + j)); });
        const auto negative = reinterpret_cast<Unsigned>(reinterpret_cast<Lanes<int, bytes>>(d) < 0);
        accumulate<bytes>(sums, (d ^ negative) - negative);
    }
    int magnitude = joined<int, bytes>(magnitudes, [](auto a, auto b) { return a | b; });
    for (std::size_t k = i; k < frameSize; ++k) magnitude |= frame[k] ^ (frame[k] >> 31);
    if (magnitude >= 1 << 26) return wideDifferences<order>(frame, frameSize, 0);
    return static_cast<std::int64_t>(sumOfLanes<std::uint64_t, bytes>(sums)) +
           wideDifferences<order>(frame, frameSize, i);
}

template <std::size_t bytes>
std::int64_t differences(const int* frame, std::size_t frameSize, int order) {
    switch (order) {
    case 1:
        return differencesOfOrder<1, bytes>(frame, frameSize);
    case 2:
        return differencesOfOrder<2, bytes>(frame, frameSize);
    case 3:
        return differencesOfOrder<3, bytes>(frame, frameSize);
    case 4:
        return differencesOfOrder<4, bytes>(frame, frameSize);
    default:
        return differencesOfOrder<5, bytes>(frame, frameSize);
    }
}

} // namespace

template <wavepitch::InstructionSet set>
wavepitch::endPoint::FrameKernel wavepitch::endPoint::frameKernelOf() {
    return {deviation<ownBytes>, crossings<int, int, ownBytes>, crossings<double, std::int64_t, ownBytes>,
            differences<ownBytes>};
}

template wavepitch::endPoint::FrameKernel wavepitch::endPoint::frameKernelOf<ownSet>();
