// The kernels of pitch functions: the order of the work.
//
// A call's frames are taken tile by tile, as many frames as fit side by side:
//   1. the frames are copied into the tile, one lane each; lanes without a frame repeat the last one
//   2. they are flipped and their means removed, where the task asks for it
//   3. the pitch functions are summed, frames side by side if the tile is full or nearly so, else frame by
//      frame with lags side by side
// Frames of ints become doubles, and give what exact integers rounded once would give: differences of ints
// are exact in double, products are rounded once. Where they are small enough they are kept in 16 bits.
#include "audio/pitchFunction/kernel/intFrames.hpp"
#include "audio/pitchFunction/kernel/lagsAcross.hpp"

namespace {

static_assert(Acf::lags == Amdf::lags);

/// The areas of the work block.
struct Work {
    Work(const Task& task, void* block)
        : tile(static_cast<Doubles*>(block)), shifted(tile + task.frameSize),
          line(reinterpret_cast<double*>(shifted + task.frameSize + Acf::lags)),
          rows(reinterpret_cast<int*>(line + task.frameSize + padding<Acf>)) {}

    Doubles* tile;    // a frame to a lane
    Doubles* shifted; // one frame, shifted from lane to lane
    double* line;     // that frame, and zeros
    int* rows;        // frames of ints one after the other, frameSize + 1 apart
};

size_t workSize(const Task& task) {
    const size_t n = task.frameSize;
    return (n + n + Acf::lags) * vectorBytes + (n + padding<Acf>)*sizeof(double) +
           wordLanes * (n + 1) * sizeof(int);
}

template <typename Kind>
void sumTile(const Task& task, const Work& work, size_t frames, double* pf) {
    if (4 * frames > 3 * lanes) return sumFrames<Kind>(task, work.tile, frames, pf);
    for (size_t f = 0; f < frames; ++f) {
        shiftFrame<Kind>(task, work.tile, f, work.line, work.shifted);
        sumLags<Kind>(task, work.line, work.shifted, pf + f * task.stride);
    }
}

inline void sumTile(const Task& task, const Work& work, size_t frames, double* pf) {
    if (task.acf)
        sumTile<Acf>(task, work, frames, pf);
    else
        sumTile<Amdf>(task, work, frames, pf);
}

void ofDoubles(const Task& task, const double* wave, const int* start, size_t frameNum, void* block,
               double* pf) {
    const Work work(task, block);
    for (size_t i = 0; i < frameNum; i += lanes) {
        const size_t frames = frameNum - i < lanes ? frameNum - i : lanes;
        const double* row[lanes];
        for (size_t l = 0; l < lanes; ++l) row[l] = wave + start[i + (l < frames ? l : frames - 1)];
        interleave(row, task.frameSize, work.tile);
        if (task.flip) flipLanes(work.tile, task.frameSize);
        if (task.removeMean) subtractMeans(work.tile, task.frameSize);
        sumTile(task, work, frames, pf + i * task.stride);
    }
}

/// The frames in rows, as pairs of 16-bit samples.
inline void sumAsPairs(const Task& task, const Work& work, const int* const* row, size_t frames, double* pf) {
    auto* tile = reinterpret_cast<Words*>(work.tile);
    interleavePairs(row, task.frameSize, tile);
    if (task.acf)
        sumPairs<AcfOfPairs>(task, tile, frames, pf);
    else
        sumPairs<AmdfOfPairs>(task, tile, frames, pf);
}

void ofInts(const Task& task, const int* wave, const int* start, size_t frameNum, void* block, double* pf) {
    const Work work(task, block);
    for (size_t i = 0; i < frameNum; i += wordLanes) {
        const size_t frames = frameNum - i < wordLanes ? frameNum - i : wordLanes;
        Range range;
        const int* row[wordLanes];
        for (size_t f = 0; f < wordLanes; ++f)
            row[f] = work.rows + (f < frames ? f : frames - 1) * (task.frameSize + 1);
        for (size_t f = 0; f < frames; ++f)
            range.include(prepareRow(task, wave + start[i + f], work.rows + f * (task.frameSize + 1)));
        double* to = pf + i * task.stride;
        if (hasPairs && frames >= lanes && task.lags >= AcfOfPairs::lags && fitsPairs(task, range)) {
            sumAsPairs(task, work, row, frames, to);
            continue;
        }
        for (size_t f = 0; f < frames; f += lanes) {
            interleave(row + f, task.frameSize, work.tile);
            sumTile(task, work, frames - f < lanes ? frames - f : lanes, to + f * task.stride);
        }
    }
}

} // namespace

template <wavepitch::InstructionSet set>
wavepitch::pitchFunction::Version wavepitch::pitchFunction::versionOf() {
    return {workSize, ofDoubles, ofInts, flipInts, removeMean};
}

template wavepitch::pitchFunction::Version wavepitch::pitchFunction::versionOf<ownSet>();
