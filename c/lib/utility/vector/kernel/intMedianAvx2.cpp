#include "utility/vector/kernel/intMedian.hpp"
#include "utility/vector/kernel/intMedianText.hpp"

int avx2IntMedian(const int* vec, int n) {
    return medianOfInts<32>(vec, n);
}
