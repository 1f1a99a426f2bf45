// The candidates of all frames of a recording, and the path through them.
#pragma once

#include "audio/pitchTracking/candidates.hpp"
#include "audio/pitchTracking/pitchMatrix.hpp"

#include <memory>
#include <vector>

namespace wavepitch::pitchTracking {

/// Holds the candidates of all frames in one block, into which the frames' ppc point.
class CandidateTable {
public:
    /// Picks each frame's candidates (pf2ppc) from its column; the path search has not seen them yet.
    ///
    /// @param sounds  false where the matrix is that of a silent waveform: no frame has candidates.
    CandidateTable(const PitchMatrix& matrix, const PTPARAM& ptParam, bool sounds);

    /// Searches the path (A2pitchByDp) through every maximal run of frames that have candidates. A recording
    /// of a single frame has no path.
    ///
    /// @param pitch  receives the pitch of the frames in runs; the others keep their value.
    void findPath(const PTPARAM& ptParam, double* pitch);

    int frameNum() const { return static_cast<int>(frames.size()); }
    /// The lag chosen for a frame, -1 for none.
    int bestIndex(int frame) const { return frames[static_cast<std::size_t>(frame)].bestIndex; }

private:
    std::unique_ptr<PPC[]> block;
    std::vector<STRUCT_A> frames;
};

} // namespace wavepitch::pitchTracking
