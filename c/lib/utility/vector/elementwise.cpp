#include "utility/vector/elementwise.hpp"

#include "utility/fatal.hpp"
#include "utility/rounding.hpp"

#include <cmath>

void double2intVec(const double* in, int n, int* out) {
    for (int i = 0; i < n; ++i) out[i] = myRound(in[i]);
}

void int2doubleVec(const int* in, int n, double* out) {
    for (int i = 0; i < n; ++i) out[i] = in[i];
}

void replaceZeroWithPrevOne(double* vec, int n) {
    if (n < 1) return;
    if (vec[0] == 0.0) myExitFormatted("Wrong vector format (line %d of %s)", __LINE__, utilitySourcePath);
    for (int i = 1; i < n; ++i)
        if (vec[i] == 0.0) vec[i] = vec[i - 1];
}

void encodeXor(char* buffer, int length, const char* key, int keyLength) {
    if (keyLength < 1) return;
    for (int i = 0, k = 0; i < length; ++i) {
        buffer[i] = static_cast<char>(buffer[i] ^ key[k]);
        if (++k == keyLength) k = 0;
    }
}

double gaussianLog(double x, double mean, double variance) {
    constexpr double lnTwoPi = 1.83787706640935;
    const double distance = x - mean;
    return (-lnTwoPi - distance * distance / variance - std::log(variance)) * 0.5;
}
