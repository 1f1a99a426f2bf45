// The samples of a recording as ints, a stretch at a time, wherever they are held and whatever they must be
// converted from: the ground of operations that take recordings of several kinds in flat memory.
#pragma once

#include <cstdint>

namespace wavepitch::framing {

class SampleSource {
public:
    explicit SampleSource(int samples) : count(samples) {}
    virtual ~SampleSource() = default;
    SampleSource(const SampleSource&) = delete;
    SampleSource& operator=(const SampleSource&) = delete;

    int length() const { return count; }

    /// Samples from first on, sampleNum of them, all inside the recording. They stand there until the next
    /// call.
    virtual const int* read(std::int64_t first, int sampleNum) = 0;

private:
    int count;
};

/// An array of the caller's, read where it stands.
class IntSamples final : public SampleSource {
public:
    IntSamples(const int* itsWave, int waveLen) : SampleSource(waveLen), wave(itsWave) {}

    const int* read(std::int64_t first, int) override { return wave + first; }

private:
    const int* wave;
};

} // namespace wavepitch::framing
