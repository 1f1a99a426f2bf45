#include "utility/vector/kernel/intMedian.hpp"
#include "utility/vector/kernel/intMedianText.hpp"

int portableIntMedian(const int* vec, int n) {
    return medianOfInts<16>(vec, n);
}
