#include "audio/pitchTracking/postProcess.hpp"

#include "utility/rounding.hpp"
#include "utility/vector/search.hpp"

#include <algorithm>
#include <cstdlib>
#include <new>

void cAudioPitchPostProcess::limitPitch(double* pitch, int n, float minPitch, float maxPitch) {
    const auto lowest = static_cast<double>(minPitch);
    const auto highest = static_cast<double>(maxPitch);
    for (int i = 0; i < n; ++i)
        if (pitch[i] < lowest || pitch[i] > highest) pitch[i] = 0.0;
}

void cAudioPitchPostProcess::trimPitch(const double* pitch, int n, int& first, int& last) {
    n = std::max(n, 0);
    first = 0;
    while (first < n && pitch[first] == 0.0) ++first;
    last = n - 1;
    while (last > first && pitch[last] == 0.0) --last;
}

double cAudioPitchPostProcess::interp4pitchPeriod(const double* x, int n, const double* y, double t) {
    if (n < 1) return 0.0;
    const int right = rangeSearchBinSub(t, x, 0, n - 1);
    if (right == 0) return y[0];
    if (right == n) return y[n - 1];
    const double toLeft = t - x[right - 1];
    const double toRight = x[right] - t;
    if (toLeft + toRight == 0.0) return y[right];
    if (y[right - 1] != 0.0 && y[right] != 0.0)
        return (y[right] * toLeft + y[right - 1] * toRight) / (toLeft + toRight);
    return toRight > toLeft ? y[right - 1] : y[right];
}

bool cAudioPitchPostProcess::bModifyPV(const std::vector<double>& pv, int*& out, int& outLen) {
    std::vector<double> limited = pv;
    const auto n = static_cast<int>(limited.size());
    limitPitch(limited.data(), n, 34.0F, 80.0F);
    out = wavepitch::pitchTracking::trimmedTenths(limited.data(), n, outLen);
    return true;
}

namespace wavepitch::pitchTracking {

int* trimmedTenths(const double* pitch, int n, int& outLen) {
    int first = 0;
    int last = 0;
    cAudioPitchPostProcess::trimPitch(pitch, n, first, last);
    outLen = last + 1 - first;
    void* const memory = std::malloc(sizeof(int) * static_cast<std::size_t>(std::max(outLen, 1)));
    if (!memory) throw std::bad_alloc();
    int* const tenths = static_cast<int*>(memory);
    for (int i = 0; i < outLen; ++i) tenths[i] = 10 * truncateToInt(pitch[first + i]);
    return tenths;
}

} // namespace wavepitch::pitchTracking
