#include "utility/vector/resample.hpp"

void vecResampleInt(const int* in, int inLen, int* out, int outLen) {
    constexpr std::int64_t one = 128;
    if (!wavepitch::utility::resampleEnds(in, inLen, out, outLen)) return;
    const int width = outLen - 1;
    wavepitch::utility::ResampleGrid grid(inLen, outLen);
    for (int i = 1; i < width; ++i, grid.next()) {
        const std::int64_t j = grid.position();
        const std::int64_t weight = (one * grid.remainder() + width / 2) / width;
        out[i] = static_cast<int>(((one - weight) * in[j] + weight * in[j + 1]) / one);
    }
}
