#include "utility/vector/median.hpp"

#include "utility/vector/kernel/intMedian.hpp"

#include <algorithm>
#include <cstdint>

#include "mex.h"

namespace {

void countInto(int* histVec, int histVecLen, const int* vec, int n) {
    std::fill(histVec, histVec + std::max(histVecLen, 0), 0);
    for (int i = 0; i < n; ++i) {
        if (vec[i] < 0 || vec[i] >= histVecLen) {
            mexPrintf("Out of bound!\n");
            mexPrintf("vec[%d]=%d, histVecLen=%d\n", i, vec[i], histVecLen);
        }
        if (histVecLen > 0) ++histVec[std::clamp(vec[i], 0, histVecLen - 1)];
    }
}

} // namespace

template <>
int vecMedian(const int* vec, int n) {
    return n < 1 ? 0 : wavepitch::utility::intMedian()(vec, n);
}

int vecMedianByCounting(const int* vec, int n, int* histVec, int histVecLen) {
    countInto(histVec, histVecLen, vec, n);
    if (n < 1) return 0;
    std::int64_t total = 0;
    int previous = 0;
    for (int bin = 0; bin < histVecLen; ++bin) {
        if (histVec[bin] == 0) continue;
        total += histVec[bin];
        if (total >= n / 2 + 1) {
            const bool alone = n % 2 == 1 || histVec[bin] > 1;
            return alone ? bin : wavepitch::utility::meanOfMiddle(previous, bin);
        }
        previous = bin;
    }
    return 0;
}
