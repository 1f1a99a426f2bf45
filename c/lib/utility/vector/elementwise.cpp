#include "utility/vector/convert.hpp"

#include "utility/rounding.hpp"

void double2intVec(const double* in, int n, int* out) {
    for (int i = 0; i < n; ++i) out[i] = myRound(in[i]);
}

void int2doubleVec(const int* in, int n, double* out) {
    for (int i = 0; i < n; ++i) out[i] = in[i];
}
