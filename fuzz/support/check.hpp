// How a call may end, and what its results must be. Whatever is wrong ends the target as a crash, with a line
// that says what.
#pragma once

#include "standIn.hpp"

#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

[[noreturn]] inline void fail(const std::string& what) {
    std::fprintf(stderr, "wrong: %s\n", what.c_str());
    std::abort();
}

inline void require(bool holds, const std::string& what) {
    if (!holds) fail(what);
}

/// Whether a call returns. An exception of type const char*, the host's error and lack of memory are answers,
/// too; any other one is none.
template <typename Call>
bool returns(Call call) {
    try {
        call();
        return true;
    } catch (const char* message) {
        require(message && *message, "an exception without a message");
    } catch (const standIn::HostError& error) {
        require(*error.what(), "a host error without a message");
    } catch (const std::bad_alloc&) { // NOLINT(bugprone-empty-catch): an answer as good as any
    }
    return false;
}

/// Whether two values have the same bits; not-a-number is one value.
template <typename T>
bool isSame(const T& a, const T& b) {
    if constexpr (std::same_as<T, double>)
        return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
               (std::isnan(a) && std::isnan(b));
    else if constexpr (std::same_as<T, float>)
        return std::bit_cast<std::uint32_t>(a) == std::bit_cast<std::uint32_t>(b) ||
               (std::isnan(a) && std::isnan(b));
    else
        return a == b;
}

template <typename T>
void requireSame(const T& found, const T& expected, const std::string& what) {
    if (isSame(found, expected)) return;
    if constexpr (std::is_arithmetic_v<T>)
        fail(what + ": " + std::to_string(found) + ", not " + std::to_string(expected));
    else
        fail(what);
}

/// Of lists: anything with a size and elements by number.
template <typename Found, typename Expected>
void requireSameList(const Found& found, const Expected& expected, const std::string& what) {
    require(found.size() == expected.size(), what + ": as many values");
    auto wanted = expected.begin();
    std::size_t place = 0;
    for (const auto& value : found) {
        if (!isSame(value, *wanted)) requireSame(value, *wanted, what + " at " + std::to_string(place));
        ++wanted;
        ++place;
    }
}
