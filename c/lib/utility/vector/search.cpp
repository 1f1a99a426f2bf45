#include "utility/vector/search.hpp"

#include <algorithm>

int tableLookupByRangeSearch(const int* boundaries, int n, int value, int offset, int reverse) {
    const int entries = std::max(n, 0);
    const std::int64_t interval = rangeSearchBinSub(value, boundaries, 0, entries - 1);
    return clampToInt((reverse != 0 ? entries - interval : interval) + offset);
}

double tableLookupByDirectMapping(const double* table, int n, double x, double minX, double maxX,
                                  double step) {
    if (n < 1) return 0.0;
    if (minX >= x || n == 1) return table[0];
    if (x >= maxX) return table[n - 1];
    const int i = std::clamp(truncateToInt((x - minX) / step), 0, n - 2);
    const double xi = i * step + minX;
    return ((xi + step - x) * table[i] + (x - xi) * table[i + 1]) / step;
}
