// The band signal: the part of a recording in which the harmonics of a voice lie, at a rate of its own.
#pragma once

#include "audio/voice/filter.hpp"
#include "audio/voice/layout.hpp"
#include "audio/voice/level.hpp"

#include <vector>

namespace wavepitch::voice {

/// Forms the band signal piece by piece:
///   low-pass   to the band's top, decimated
///   high-pass  the signal less its part below the lowest frequency. That part is slow: it is formed at
///              every few samples, and interpolated between them by cubics.
///
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
    /// @param most  samples that are kept, the first ones; those behind are formed anew whenever they are
    /// read.
    Band(BandFilter filterToUse, const Layout& layout, std::size_t most);

    /// The num samples from first on, until the next call.
    const float* read(std::int64_t first, std::size_t num);

private:
    BandFilter filter;
    std::int64_t keptFrom;
    std::vector<float> kept; // as much as may be of all that frames ask for
    std::vector<float> piece;
};

} // namespace wavepitch::voice
