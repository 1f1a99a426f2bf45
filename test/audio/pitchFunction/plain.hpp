// The pitch functions as plain loops: what the kernels must equal, and what the benchmarks measure them by.
#pragma once

#include "audio/audio.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <type_traits>
#include <vector>

/// A type that holds every sum, difference and product of samples.
template <typename T>
using Wide = std::conditional_t<std::is_same_v<T, int>, std::int64_t, T>;

template <typename T>
void plainSums(const T* x, int n, int pfLen, PF_TYPE pfType, int method, double* pf) {
    for (int i = 0; i < pfLen; ++i) {
        int terms = n - i;
        if (method == 3) terms = n - pfLen;
        if (method == 4) terms = std::min(pfLen, n - i);
        double sum = 0;
        if (pfType == PF_ACF)
            for (int j = 0; j < terms; ++j) sum += static_cast<double>(Wide<T>{x[j]} * x[j + i]);
        else
            for (int j = 0; j < terms; ++j) sum += static_cast<double>(std::abs(Wide<T>{x[j]} - x[j + i]));
        pf[i] = method == 2 ? sum / (n - i) : sum;
    }
}

template <typename T>
Wide<T> plainSum(const T* x, int n) {
    Wide<T> sum = 0;
    for (int j = 0; j < n; ++j) sum += x[j];
    return sum;
}

template <typename T>
void plainRemoveMean(T* x, int n) {
    const Wide<T> mean = plainSum(x, n) / n;
    for (int j = 0; j < n; ++j) {
        Wide<T> less = x[j] - mean;
        if constexpr (std::is_same_v<T, int>) less = std::clamp<Wide<T>>(less, INT32_MIN, INT32_MAX);
        x[j] = static_cast<T>(less);
    }
}

template <typename T>
void plainFlip(T* x, int n) {
    Wide<T> mean;
    if constexpr (std::is_same_v<T, int>)
        mean = myRound(static_cast<float>(static_cast<double>(plainSum(x, n)) / n));
    else
        mean = plainSum(x, n) / static_cast<T>(n);
    Wide<T> half[2] = {0, 0};
    for (int j = 0; j < n; ++j) half[j < n / 2 ? 0 : 1] += std::abs(x[j] - mean);
    if (n > 1 && half[1] > half[0]) std::reverse(x, x + n);
}

template <typename T>
void plainMat(const std::vector<T>& wave, int frameNum, int n, int step, int pfLen, PF_TYPE pfType,
              int method, double* pf) {
    std::vector<T> frame(static_cast<std::size_t>(n));
    for (int i = 0; i < frameNum; ++i) {
        std::copy_n(wave.data() + i * step, n, frame.data());
        if (method > 2) plainFlip(frame.data(), n);
        if (pfType == PF_ACF) plainRemoveMean(frame.data(), n);
        plainSums(frame.data(), n, pfLen, pfType, method, pf + i * pfLen);
    }
}
