#include "utility/vector/kernel/intMedian.hpp"
#include "utility/vector/kernel/intMedianText.hpp"

int avx512IntMedian(const int* vec, int n) {
    return medianOfInts<64>(vec, n);
}
