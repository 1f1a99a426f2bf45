#include "utility/scaling/linearScaling.hpp"

#include "utility/fatal.hpp"
#include "utility/rounding.hpp"
#include "utility/vector/resample.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using wavepitch::utility::scaleRatio;

/// An array of at least one element, so that null means that there is no memory.
template <typename T>
T* allocate(std::size_t rows, std::size_t columns) {
    if (rows == 0 || columns == 0) rows = columns = 1;
    if (columns > PTRDIFF_MAX / sizeof(T) / rows) return nullptr;
    return static_cast<T*>(std::malloc(rows * columns * sizeof(T)));
}

} // namespace

void linearScaledVecCreate(const double* query, int queryLen, double lowerRatio, double upperRatio,
                           int resolution, SCALEDVECSET* set) {
    const int maxLen = queryLen < 1 ? 0 : std::max(truncateToInt(queryLen * upperRatio), 0);
    const auto rows = static_cast<std::size_t>(std::max(resolution, 0));
    const auto stride = static_cast<std::size_t>(maxLen);
    *set = {
        lowerRatio, upperRatio, resolution, maxLen, allocate<double>(rows, stride), allocate<int>(rows, 1)};
    if (!set->scaledVec || !set->scaledVecLen) {
        linearScaledVecFree(set);
        myExitFormatted("No memory for %d scales of %d values (line %d of %s)", resolution, maxLen, __LINE__,
                        utilitySourcePath);
    }
    for (std::size_t i = 0; i < rows; ++i) {
        const double ratio = scaleRatio(lowerRatio, upperRatio, resolution, static_cast<int>(i));
        set->scaledVecLen[i] = std::clamp(truncateToInt(ratio * queryLen), 0, maxLen);
        vecResample(query, queryLen, set->scaledVec + i * stride, set->scaledVecLen[i]);
    }
}

void linearScaledVecFree(SCALEDVECSET* set) {
    std::free(set->scaledVec);
    std::free(set->scaledVecLen);
    set->scaledVec = nullptr;
    set->scaledVecLen = nullptr;
    set->resolution = 0;
}
