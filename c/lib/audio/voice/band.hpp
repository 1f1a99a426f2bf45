// The band signal: the part of a recording in which the harmonics of a voice lie, at a rate of its own.
#pragma once

#include "audio/voice/filter.hpp"
#include "audio/voice/layout.hpp"
#include "audio/voice/level.hpp"

#include <vector>

namespace wavepitch::voice {

/// Forms the band signal piece by piece:
///   low-pass   to the band's top, decimated
///   high-pass  the signal less its part below the lowest frequency. That part is slow: its low-pass is
///   formed
///              at every few samples, and between them it is interpolated by cubics.
/// Beyond the recording the signal fades out as the filters do, then it is 0.
class BandFilter {
public:
    /// @param recording  outlives the object.
    BandFilter(const Source& recording, const Layout& layout, double lowestFreq);

    /// The num samples from first on.
    void run(std::int64_t first, std::size_t num, float* out);

private:
    void subtractSlow(const float* slow, std::int64_t first, std::size_t num, float* out) const;

    const Source& source;
    std::size_t decimation;
    Filter low;
    Filter slowPart;
    std::vector<float> wide;   // after the low-pass
    std::vector<float> cubics; // four weights for each of the places between two samples of the slow part
};

/// Pieces of the band signal, read over and over.
class Band {
public:
    /// @param most  samples that are kept; a longer band signal is formed anew whenever it is read.
    Band(BandFilter filterToUse, const Layout& layout, std::size_t most);

    /// The num samples from first on, until the next call.
    const float* read(std::int64_t first, std::size_t num);

private:
    BandFilter filter;
    std::int64_t keptFrom;
    std::vector<float> kept; // all that frames ask for, or nothing
    std::vector<float> piece;
};

} // namespace wavepitch::voice
