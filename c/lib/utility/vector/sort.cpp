#include "utility/vector/sort.hpp"

namespace {

template <typename T>
int signOfDifference(const void* first, const void* second) {
    const T difference = *static_cast<const T*>(first) - *static_cast<const T*>(second);
    if (difference < 0) return -1;
    return difference == 0 ? 0 : 1;
}

} // namespace

int sortFunction(const void* first, const void* second) {
    return doubleSortFunction(first, second);
}

int doubleSortFunction(const void* first, const void* second) {
    return signOfDifference<double>(first, second);
}

int floatSortFunction(const void* first, const void* second) {
    return signOfDifference<float>(first, second);
}

int intSortFunction(const void* first, const void* second) {
    const int a = *static_cast<const int*>(first);
    const int b = *static_cast<const int*>(second);
    return a < b ? -1 : (a > b ? 1 : 0);
}
