// The kernels of pitch functions: the order of the work.
//
// A call's frames are taken in groups of as many as fit side by side. A group that fills the lanes, or
// nearly, is summed with frames side by side, in a tile; else each frame is copied to a line and summed with
// lags side by side. Where there are few lags, they are summed straight from the frame. The flip and the
// removal of the mean, where the task asks for them, happen in those copies.
//
// Frames of ints become doubles, and give what exact integers rounded once would give: differences of ints
// are exact in double, products are rounded once. Where they are small enough they are kept in 16 bits.
#include "audio/pitchFunction/kernel/doubleFrames.hpp"
#include "audio/pitchFunction/kernel/framesAcross.hpp"
#include "audio/pitchFunction/kernel/framesOfPairs.hpp"
#include "audio/pitchFunction/kernel/intFrames.hpp"
#include "audio/pitchFunction/kernel/lagsAcross.hpp"
#include "audio/pitchFunction/kernel/lagsOfPairs.hpp"
#include "audio/pitchFunction/kernel/straight.hpp"

namespace {

bool fillsTile(size_t frames) {
    return 4 * frames > 3 * lanes;
}

/// Whether groups of so many frames are summed straight from the frames, and whether those are the caller's.
bool isStraight(const Task& task, size_t frames) {
    return task.lags <= straightLags && !fillsTile(frames);
}

bool isWithoutCopy(const Task& task, size_t frames) {
    return isStraight(task, frames) && !task.flip && !task.removeMean;
}

size_t bytesOfTile(const Task& task) {
    return task.frameSize * sizeof(Doubles);
}

size_t bytesOfLine(const Task& task) {
    return storedVectors(task) * sizeof(Doubles) + (task.frameSize + blockLags) * sizeof(double);
}
static_assert(behindPairs * sizeof(std::int16_t) <= blockLags * sizeof(double));

size_t max(size_t a, size_t b) {
    return a > b ? a : b;
}

/// Frames in a group: of ints twice as many, which may fit side by side as pairs.
template <typename Sample>
constexpr size_t groupSize = sizeof(Sample) == sizeof(double) ? lanes : wordLanes;

/// The areas of the work block. The last group of a call may be a smaller one, and need other areas.
struct Work {
    Work(const Task& task, size_t frameNum, void* block)
        : tile(static_cast<Doubles*>(block)), pairs(static_cast<Words*>(block)), stored(tile),
          line(reinterpret_cast<double*>(stored + storedVectors(task))),
          shorts(static_cast<std::int16_t*>(block)),
          rows(reinterpret_cast<int*>(static_cast<char*>(block) + bytesOfFrames(task, frameNum))) {}

    /// What the frames need beside the rows.
    static size_t bytesOfFrames(const Task& task, size_t frameNum) {
        return fillsTile(frameNum) ? max(bytesOfTile(task), bytesOfLine(task)) : bytesOfLine(task);
    }

    template <typename Sample>
    static size_t bytes(const Task& task, size_t frameNum) {
        if (isWithoutCopy(task, frameNum)) return 0;
        const size_t frames = frameNum < groupSize<Sample> ? frameNum : groupSize<Sample>;
        const size_t rows = sizeof(Sample) == sizeof(double) ? 0 : frames * (task.frameSize + 1);
        return bytesOfFrames(task, frameNum) + rows * sizeof(int);
    }

    Doubles* tile;        // a frame to a lane
    Words* pairs;         // or a frame of pairs to a lane
    Doubles* stored;      // or the windows of one frame
    double* line;         // and that frame
    std::int16_t* shorts; // or one frame of small samples
    int* rows;            // frames of ints one after the other, frameSize + 1 apart
};

/// Calls sum(kind, ...) with the kind of terms that the task asks for.
template <typename Sum>
void withKind(const Task& task, const Sum& sum) {
    if (task.acf)
        sum(Acf{});
    else
        sum(Amdf{});
}

/// The pitch functions of so many frames, at most lanes, in a tile whose lanes without a frame repeat the
/// first one.
template <typename Sample>
void sumAsTile(const Task& task, const Work& work, const Sample* const* frame, size_t frames, double* pf) {
    const Sample* row[lanes];
    for (size_t l = 0; l < lanes; ++l) row[l] = frame[l < frames ? l : 0];
    interleave(row, task.frameSize, work.tile);
    if constexpr (sizeof(Sample) == sizeof(double)) prepare(task, work.tile);
    withKind(task, [&](auto kind) { sumFrames<decltype(kind)>(task, work.tile, frames, pf); });
}

template <typename Sample>
void sumStraight(const Task& task, const Sample* frame, double* pf) {
    withKind(task, [&](auto kind) { sumStraight<decltype(kind)>(task, frame, pf); });
}

/// A copy of the frame, prepared, with zeros behind it, in the line.
template <typename Sample>
void copyToLine(const Task& task, const Sample* frame, double* line) {
    for (size_t j = 0; j < task.frameSize; ++j) line[j] = static_cast<double>(frame[j]);
    for (size_t j = 0; j < blockLags; ++j) line[task.frameSize + j] = 0.0;
    if constexpr (sizeof(Sample) == sizeof(double)) prepare(task, line);
}

/// The pitch function of one frame.
template <typename Sample>
void sumOne(const Task& task, const Work& work, const Sample* frame, bool straight, double* pf) {
    copyToLine(task, frame, work.line);
    if (straight) return sumStraight(task, work.line, pf);
    withKind(task, [&](auto kind) { sumLags<decltype(kind)>(task, work.line, work.stored, pf); });
}

void sumGroup(const Task& task, const Work& work, const double* const* frame, size_t frames, double* pf) {
    if (fillsTile(frames)) return sumAsTile(task, work, frame, frames, pf);
    for (size_t f = 0; f < frames; ++f) {
        double* to = pf + f * task.stride;
        if (isWithoutCopy(task, frames))
            sumStraight(task, frame[f], to);
        else
            sumOne(task, work, frame[f], isStraight(task, frames), to);
    }
}

/// The pitch functions of rows of samples of that range.
void sumAsPairs(const Task& task, const Work& work, Range range, const int* const* row, size_t frames,
                double* pf) {
    withPairs(task, range, [&](auto kind) {
        using Kind = decltype(kind);
        if (4 * frames > 3 * wordLanes) {
            const int* lane[wordLanes];
            for (size_t l = 0; l < wordLanes; ++l) lane[l] = row[l < frames ? l : 0];
            interleavePairs(lane, task.frameSize, work.pairs);
            return sumFramesOfPairs<Kind>(task, work.pairs, frames, pf);
        }
        for (size_t f = 0; f < frames; ++f)
            sumLagsOfPairs<Kind>(task, row[f], work.shorts, pf + f * task.stride);
    });
}

void sumGroup(const Task& task, const Work& work, const int* const* frame, size_t frames, double* pf) {
    if (isWithoutCopy(task, frames)) {
        for (size_t f = 0; f < frames; ++f) sumStraight(task, frame[f], pf + f * task.stride);
        return;
    }
    const int* row[wordLanes] = {};
    Range range;
    for (size_t f = 0; f < frames; ++f) {
        int* const prepared = work.rows + f * (task.frameSize + 1);
        range.include(prepareRow(task, frame[f], prepared));
        row[f] = prepared;
    }
    if (!isStraight(task, frames) && fitsPairs(task, range))
        return sumAsPairs(task, work, range, row, frames, pf);
    for (size_t f = 0; f < frames; f += lanes) {
        const size_t some = frames - f < lanes ? frames - f : lanes;
        double* to = pf + f * task.stride;
        if (fillsTile(some))
            sumAsTile(task, work, row + f, some, to);
        else
            for (size_t i = 0; i < some; ++i)
                sumOne(task, work, row[f + i], isStraight(task, frames), to + i * task.stride);
    }
}

template <typename Sample>
void inGroups(const Task& task, const Sample* wave, const int* start, size_t frameNum, void* block,
              double* pf) {
    constexpr size_t size = groupSize<Sample>;
    const Work work(task, frameNum, block);
    for (size_t i = 0; i < frameNum; i += size) {
        const size_t frames = frameNum - i < size ? frameNum - i : size;
        const Sample* frame[size] = {};
        for (size_t f = 0; f < frames; ++f) frame[f] = wave + start[i + f];
        sumGroup(task, work, frame, frames, pf + i * task.stride);
    }
}

size_t workSize(const Task& task, bool ofInts, size_t frameNum) {
    return ofInts ? Work::bytes<int>(task, frameNum) : Work::bytes<double>(task, frameNum);
}

} // namespace

template <wavepitch::InstructionSet set>
wavepitch::pitchFunction::Version wavepitch::pitchFunction::versionOf() {
    return {workSize, inGroups<double>, inGroups<int>, flipInts, removeMean};
}

template wavepitch::pitchFunction::Version wavepitch::pitchFunction::versionOf<ownSet>();
