#include "audio/voice/level.hpp"

#include "audio/voice/sum.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace wavepitch::voice {

namespace {

/// The power of two that brings a size from 2^-1074 on below 1, to 0.5 at least where it can be held.
double scaleFor(double size) {
    int exponent = 0;
    std::frexp(size, &exponent);
    return std::ldexp(1.0, std::min(-exponent, 1023));
}

template <typename Sample>
double meanOf(const Sample* wave, std::size_t waveLen, double scale) {
    const double sum = sumOf(waveLen, [&](std::size_t i) { return static_cast<double>(wave[i]) * scale; });
    return sum / static_cast<double>(waveLen);
}

template <typename Sample>
struct Extremes {
    Sample low;
    Sample high;
};

template <typename Sample>
Extremes<Sample> extremesOf(const Sample* wave, std::size_t waveLen) {
    constexpr std::size_t parts = 8; // side by side
    std::array<Sample, parts> low;
    std::array<Sample, parts> high;
    low.fill(wave[0]);
    high.fill(wave[0]);
    const std::size_t whole = waveLen - waveLen % parts;
    const auto look = [&](Sample x, std::size_t k) {
        low[k] = x < low[k] ? x : low[k];
        high[k] = x > high[k] ? x : high[k];
    };
    for (std::size_t i = 0; i < whole; i += parts)
        for (std::size_t k = 0; k < parts; ++k) look(wave[i + k], k);
    for (std::size_t i = whole; i < waveLen; ++i) look(wave[i], i - whole);
    return {*std::min_element(low.begin(), low.end()), *std::max_element(high.begin(), high.end())};
}

} // namespace

template <typename Sample>
Level levelOf(const Sample* wave, std::size_t waveLen) {
    Level level;
    if (waveLen == 0) return level;
    const auto extremes = extremesOf(wave, waveLen);
    const auto low = static_cast<double>(extremes.low);
    const auto high = static_cast<double>(extremes.high);
    if (low == high || !std::isfinite(low) || !std::isfinite(high)) return level;
    level.firstScale = scaleFor(std::max(-low, high));
    level.mean = meanOf(wave, waveLen, level.firstScale);
    if (!std::isfinite(level.mean)) return level;
    const double span = std::max(high * level.firstScale - level.mean, level.mean - low * level.firstScale);
    if (!(span > 0)) return level;
    level.secondScale = scaleFor(span);
    level.isSilent = false;
    return level;
}

template <typename Sample>
void Source::copyOf(const Source& source, std::int64_t first, std::int64_t step, std::size_t num,
                    float* out) {
    const auto* wave = static_cast<const Sample*>(source.samples);
    const auto end = static_cast<std::int64_t>(num);
    // The samples from..to of these lie inside the recording.
    const std::int64_t from = std::clamp<std::int64_t>(first < 0 ? (step - 1 - first) / step : 0, 0, end);
    const std::int64_t left = source.length - first;
    const std::int64_t to = std::clamp<std::int64_t>(left > 0 ? (left + step - 1) / step : 0, from, end);
    const Level level = source.level;
    std::fill(out, out + from, 0.0F);
    const auto value = [&](std::int64_t at) {
        return static_cast<float>((static_cast<double>(wave[at]) * level.firstScale - level.mean) *
                                  level.secondScale);
    };
    if (step == 1)
        for (std::int64_t i = from; i < to; ++i) out[i] = value(first + i);
    else
        for (std::int64_t i = from; i < to; ++i) out[i] = value(first + i * step);
    std::fill(out + to, out + end, 0.0F);
}

template Level levelOf(const double*, std::size_t);
template Level levelOf(const int*, std::size_t);
template void Source::copyOf<double>(const Source&, std::int64_t, std::int64_t, std::size_t, float*);
template void Source::copyOf<int>(const Source&, std::int64_t, std::int64_t, std::size_t, float*);

} // namespace wavepitch::voice
