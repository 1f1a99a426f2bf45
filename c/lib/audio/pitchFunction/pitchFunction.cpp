#include "audio/pitchFunction/pitchFunction.hpp"

#include "audio/failure.hpp"
#include "audio/framing/framing.hpp"
#include "utility/fatal.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "mex.h"

namespace {

[[noreturn]] void unknownMethod(const char* function, const double* /*instance*/) {
    std::printf("Unknown method for %s()!\n", function);
    std::exit(1);
}

[[noreturn]] void unknownMethod(const char* function, const int* /*instance*/) {
    mexPrintf("Unknown method for %s()!\n", function);
    std::exit(1);
}

template <typename T, typename Term>
void sumByLag(const T* frame, int frameSize, double* pf, int pfLen, int method, Term term) {
    const std::int64_t n = frameSize;
    for (std::int64_t lag = 0; lag < pfLen; ++lag) {
        std::int64_t terms = n - lag;
        if (method == 3) terms = std::min(terms, n - pfLen);
        if (method == 4) terms = std::min<std::int64_t>(terms, pfLen);
        double sum = 0.0;
        for (std::int64_t j = 0; j < terms; ++j)
            sum += term(static_cast<double>(frame[j]), static_cast<double>(frame[j + lag]));
        pf[lag] = method == 2 ? sum / static_cast<double>(n - lag) : sum;
    }
}

void subtractMean(double* frame, int frameSize) {
    double sum = 0.0;
    for (int j = 0; j < frameSize; ++j) sum += frame[j];
    const double mean = sum / frameSize;
    for (int j = 0; j < frameSize; ++j) frame[j] -= mean;
}

void subtractMean(int* frame, int frameSize) {
    std::int64_t sum = 0;
    for (int j = 0; j < frameSize; ++j) sum += frame[j];
    const std::int64_t mean = sum / frameSize;
    for (int j = 0; j < frameSize; ++j)
        frame[j] = static_cast<int>(std::clamp<std::int64_t>(frame[j] - mean, INT32_MIN, INT32_MAX));
}

} // namespace

template <typename T1, typename T2>
void frame2amdf(const T1* frame, int frameSize, T2* amdf, int pfLen, int method) {
    if (method < 1 || method > 4) unknownMethod("frame2amdf", frame);
    sumByLag(frame, frameSize, amdf, pfLen, method, [](double a, double b) { return std::abs(a - b); });
}

template <typename T1, typename T2>
void frame2acf(T1* frame, int frameSize, T2* acf, int pfLen, int method, int removeMean) {
    if (removeMean && frameSize > 0) subtractMean(frame, frameSize);
    if (method < 1 || method > 4) unknownMethod("frame2acf", frame);
    sumByLag(frame, frameSize, acf, pfLen, method, [](double a, double b) { return a * b; });
}

template <typename T1, typename T2>
void wave2pfMat(const T1* wave, int waveLen, int frameSize, int overlap, int pfLen, PF_TYPE pfType,
                int pfMethod, T2* pfMat) {
    const int frameNum = cAudioFraming::getFrameNum2(waveLen, frameSize, overlap);
    if (frameSize < 1 || frameNum < 1) return;
    if (pfType != PF_AMDF && pfType != PF_ACF)
        myExitFormatted("Unknown pfType=%d (line %d of file %s)", static_cast<int>(pfType), __LINE__,
                        audioSourcePath);
    const std::int64_t step = std::int64_t{frameSize} - overlap;
    std::vector<T1> copy(static_cast<std::size_t>(frameSize));
    for (std::int64_t i = 0; i < frameNum; ++i) {
        std::copy_n(wave + i * step, frameSize, copy.data());
        if (pfMethod != 1 && pfMethod != 2) cAudioPitchFunction::frameFlip(copy.data(), frameSize);
        if (pfType == PF_ACF)
            frame2acf(copy.data(), frameSize, pfMat + i * pfLen, pfLen, pfMethod, 1);
        else
            frame2amdf(copy.data(), frameSize, pfMat + i * pfLen, pfLen, pfMethod);
    }
}

template void wave2pfMat(const double*, int, int, int, int, PF_TYPE, int, double*);
template void wave2pfMat(const int*, int, int, int, int, PF_TYPE, int, double*);
template void frame2amdf(const double*, int, double*, int, int);
template void frame2amdf(const int*, int, double*, int, int);
template void frame2acf(double*, int, double*, int, int, int);
template void frame2acf(int*, int, double*, int, int, int);
