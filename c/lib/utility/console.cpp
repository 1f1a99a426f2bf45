#include "utility/console.hpp"

#include "utility/fatal.hpp"

#include <cstdint>
#include <cstdio>
#include <ctime>

#include "mex.h"

void myPrintf(const char* /*format*/, ...) {}

char* myGets(char* buf) {
    if (!std::fgets(buf, 256, stdin))
        myExitFormatted("Error reading string (line %d of %s)", __LINE__, utilitySourcePath);
    return buf;
}

int pauseForInput() {
    mexPrintf("Hit RETURN to continue ...\n");
    return std::getc(stdin);
}

void sleep(float seconds) {
    constexpr float tickLimit = 18446744073709551616.0F; // 2^64
    const float ticks = seconds * 1000000.0F;
    if (!(ticks > 0.0F)) return;
    const auto now = static_cast<std::uint64_t>(std::clock());
    const std::uint64_t wanted = ticks < tickLimit ? static_cast<std::uint64_t>(ticks) : UINT64_MAX;
    const std::uint64_t target = wanted > UINT64_MAX - now ? UINT64_MAX : now + wanted;
    while (static_cast<std::uint64_t>(std::clock()) < target) {
    }
}
