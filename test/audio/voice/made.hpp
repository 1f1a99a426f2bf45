// Voices that are made, and the tracker on them.
#pragma once

#include "support/audio.hpp"

#include <functional>
#include <numbers>

/// Frequency in Hz at a time in seconds.
using Contour = std::function<double(double)>;

/// Harmonics up to 3500 Hz, weaker the higher.
inline Doubles voiceOf(const Contour& contour, double seconds, int fs) {
    Doubles wave(static_cast<size_t>(seconds * fs));
    double phase = 0;
    for (size_t i = 0; i < wave.size(); ++i) {
        const double freq = contour(static_cast<double>(i) / fs);
        const double top = std::min(3500.0, 0.45 * fs);
        for (int q = 1; q * freq < top; ++q) wave[i] += std::sin(q * phase) / q;
        phase += 2 * std::numbers::pi * freq / fs;
    }
    return wave;
}

inline Doubles voiceOf(double freq, double seconds, int fs) {
    return voiceOf([=](double) { return freq; }, seconds, fs);
}

/// With white noise 20 dB below.
inline Doubles inNoise(Doubles wave) {
    double energy = 0;
    for (const double x : wave) energy += x * x;
    std::mt19937 random(7); // NOLINT(cert-msc51-cpp)
    std::normal_distribution<double> noise(0, 0.1 * std::sqrt(energy / static_cast<double>(wave.size())));
    for (double& x : wave) x += noise(random);
    return wave;
}

inline VOICEPARAM at(int fs) {
    VOICEPARAM param;
    param.fs = fs;
    return param;
}

template <typename Sample>
Doubles pitchOf(const std::vector<Sample>& wave, const VOICEPARAM& param) {
    Doubles f0(static_cast<size_t>(voiceSizes(lengthOf(wave), param).frameNum), -1);
    wave2f0(wave.data(), lengthOf(wave), param, f0.data());
    return f0;
}

/// The distance of two frequencies.
inline double cents(double freq, double reference) {
    return std::abs(1200 * std::log2(freq / reference));
}
