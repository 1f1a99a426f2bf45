// The samples of a recording at a level of its own: without their mean, the largest between 0.5 and 1.
#pragma once

#include <cstddef>
#include <cstdint>

namespace wavepitch::voice {

/// The steps from a sample to its value: times a power of two, less the mean, times another power of two. The
/// first keeps sums of samples of any size finite, so both are exact.
struct Level {
    bool isSilent = true; // all samples are equal, or one is not a finite number
    double firstScale = 1;
    double mean = 0; // after the first scale
    double secondScale = 1;
};

/// Instances: double, int.
template <typename Sample>
Level levelOf(const Sample* wave, std::size_t waveLen);

/// A recording at its level, whatever the type of its samples; 0 before and behind it.
class Source {
public:
    template <typename Sample>
    Source(const Sample* wave, std::size_t waveLen)
        : level(levelOf(wave, waveLen)), samples(wave), length(static_cast<std::int64_t>(waveLen)),
          copy(copyOf<Sample>) {}

    bool isSilent() const { return level.isSilent; }

    /// num values into out: those of the samples first, first + step, ...
    void read(std::int64_t first, std::size_t step, std::size_t num, float* out) const {
        copy(*this, first, static_cast<std::int64_t>(step), num, out);
    }

private:
    template <typename Sample>
    static void copyOf(const Source& source, std::int64_t first, std::int64_t step, std::size_t num,
                       float* out);

    Level level;
    const void* samples;
    std::int64_t length;
    void (*copy)(const Source&, std::int64_t, std::int64_t, std::size_t, float*);
};

} // namespace wavepitch::voice
