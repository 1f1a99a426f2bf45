#include "utility/vector/zeroFill.hpp"

#include "utility/fatal.hpp"

void replaceZeroWithPrevOne(double* vec, int n) {
    if (n < 1) return;
    if (vec[0] == 0.0) myExitFormatted("Wrong vector format (line %d of %s)", __LINE__, utilitySourcePath);
    for (int i = 1; i < n; ++i)
        if (vec[i] == 0.0) vec[i] = vec[i - 1];
}
