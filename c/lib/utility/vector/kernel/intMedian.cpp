// Bisection on the value: the range of the values is halved until one value is left at which half of them
// are reached. Each step counts the values up to a limit, without a branch on any of them, so that the time
// depends on n and the range alone, at most 32 passes, whatever the order of the values.
#include "utility/vector/kernel/intMedian.hpp"

#include "utility/kernel/lanes.hpp"
#include "utility/kernel/version.hpp"

namespace {

template <typename Value>
inline Value smaller(Value a, Value b) {
    return a < b ? a : b;
}

template <typename Value>
inline Value larger(Value a, Value b) {
    return a > b ? a : b;
}

template <std::size_t bytes>
inline void range(const int* vec, std::size_t n, int& least, int& most) {
    constexpr std::size_t lanes = bytes / sizeof(int);
    Lanes<int, bytes> leasts = Lanes<int, bytes>{} + vec[0];
    Lanes<int, bytes> mosts = leasts;
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes) {
        const auto x = load<int, bytes>(vec + i);
        leasts = smaller(leasts, x);
        mosts = larger(mosts, x);
    }
    least = joined<int, bytes>(leasts, [](auto a, auto b) { return smaller(a, b); });
    most = joined<int, bytes>(mosts, [](auto a, auto b) { return larger(a, b); });
    for (; i < n; ++i) {
        least = smaller(least, vec[i]);
        most = larger(most, vec[i]);
    }
}

template <std::size_t bytes>
inline int countUpTo(int limit, const int* vec, std::size_t n) {
    constexpr std::size_t lanes = bytes / sizeof(int);
    Lanes<int, bytes> even{}; // two sums, neither of which waits for the other
    Lanes<int, bytes> odd{};
    std::size_t i = 0;
    for (; i + 2 * lanes <= n; i += 2 * lanes) {
        even -= load<int, bytes>(vec + i) <= limit;
        odd -= load<int, bytes>(vec + i + lanes) <= limit;
    }
    int count = sumOfLanes<int, bytes>(even + odd);
    for (; i < n; ++i) count += vec[i] <= limit ? 1 : 0;
    return count;
}

/// The smallest value above a limit, which some value exceeds.
template <std::size_t bytes>
inline int smallestAbove(int limit, const int* vec, std::size_t n) {
    constexpr std::size_t lanes = bytes / sizeof(int);
    const auto none = Lanes<int, bytes>{} + INT32_MAX;
    auto leasts = none;
    std::size_t i = 0;
    for (; i + lanes <= n; i += lanes) {
        const auto x = load<int, bytes>(vec + i);
        leasts = smaller(leasts, x > limit ? x : none);
    }
    int least = joined<int, bytes>(leasts, [](auto a, auto b) { return smaller(a, b); });
    for (; i < n; ++i)
        if (vec[i] > limit) least = smaller(least, vec[i]);
    return least;
}

} // namespace

template <wavepitch::InstructionSet set>
int wavepitch::utility::intMedianOf(const int* vec, int length) {
    constexpr std::size_t bytes = ownBytes;
    const auto n = static_cast<std::size_t>(length);
    const int wanted = (length - 1) / 2 + 1; // as many values reach the lower of the two in the middle
    int lower = 0;
    int above = 0;
    range<bytes>(vec, n, lower, above);
    while (lower < above) {
        const auto limit = static_cast<int>((static_cast<std::int64_t>(lower) + above) >> 1);
        const bool reached = countUpTo<bytes>(limit, vec, n) >= wanted;
        above = reached ? limit : above;
        lower = reached ? lower : limit + 1;
    }
    const bool alone = length % 2 == 1 || countUpTo<bytes>(lower, vec, n) > wanted;
    const std::int64_t upper = alone ? lower : smallestAbove<bytes>(lower, vec, n);
    return static_cast<int>((lower + upper) / 2);
}

template int wavepitch::utility::intMedianOf<ownSet>(const int*, int);
