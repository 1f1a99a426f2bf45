#include "audio/endPoint/localAverage.hpp"

#include "utility/rounding.hpp"

void cAudioLocalAverage::localAverage(int* x, int n) {
    if (n < 3) return;
    int before = x[0];
    for (int i = 1; i < n - 1; ++i) {
        const std::int64_t sum = std::int64_t{intDiv(before, 4)} + intDiv(x[i], 2) + intDiv(x[i + 1], 4);
        before = x[i];
        x[i] = clampToInt(sum);
    }
}
