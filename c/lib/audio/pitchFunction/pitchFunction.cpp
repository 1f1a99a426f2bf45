#include "audio/pitchFunction/pitchFunction.hpp"

#include "audio/failure.hpp"
#include "audio/framing/framing.hpp"
#include "audio/pitchFunction/kernel/kernel.hpp"
#include "utility/fatal.hpp"
#include "utility/interruption.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <type_traits>
#include <vector>

#include "mex.h"

namespace {

using wavepitch::pitchFunction::Task;
using wavepitch::pitchFunction::taskOf;
using wavepitch::pitchFunction::Version;

[[noreturn]] void unknownMethod(PF_TYPE pfType, const double* /*instance*/) {
    std::puts(pfType == PF_ACF ? "Unknown method for frame2acf()!" : "Unknown method for frame2amdf()!");
    std::exit(1);
}

[[noreturn]] void unknownMethod(PF_TYPE pfType, const int* /*instance*/) {
    mexPrintf(pfType == PF_ACF ? "Unknown method for frame2acf()!\n" : "Unknown method for frame2amdf()!\n");
    std::exit(1);
}

/// Room for a kernel's work; small work is not worth an allocation.
class WorkBlock {
public:
    explicit WorkBlock(std::size_t size)
        : allocated(size > sizeof small ? ::operator new(size, alignment) : nullptr) {}
    ~WorkBlock() { ::operator delete(allocated, alignment); }
    WorkBlock(const WorkBlock&) = delete;
    WorkBlock& operator=(const WorkBlock&) = delete;

    void* get() { return allocated ? allocated : small; }

private:
    static constexpr std::align_val_t alignment{64};
    alignas(64) std::byte small[4096];
    void* allocated;
};

void run(const Version& version, const Task& task, const double* wave, const int* start, std::size_t frameNum,
         void* work, double* pf) {
    version.ofDoubles(task, wave, start, frameNum, work, pf);
}

void run(const Version& version, const Task& task, const int* wave, const int* start, std::size_t frameNum,
         void* work, double* pf) {
    version.ofInts(task, wave, start, frameNum, work, pf);
}

/// Frames between two questions to the host: whole groups of every kernel.
std::size_t framesAtATime(const Task& task) {
    constexpr std::size_t terms = 1 << 26;
    constexpr std::size_t group = 64;
    const std::size_t ofFrame = std::max<std::size_t>(1, task.lags * task.frameSize);
    return std::max<std::size_t>(1, terms / ofFrame / group) * group;
}

/// The pitch functions of the frames that start at these samples, frameNum of them. The lags of frameSize and
/// more, which have no terms, are no matter of the kernels.
template <typename T>
void pitchFunctions(const Task& task, const T* wave, const int* start, std::size_t frameNum, double* pf) {
    const Version version = wavepitch::pitchFunction::version();
    if (task.lags > 0) {
        WorkBlock work(version.workSize(task, std::is_same_v<T, int>, frameNum));
        const std::size_t most = framesAtATime(task);
        for (std::size_t i = 0; i < frameNum; i += most) {
            wavepitch::utility::askForInterruption();
            const std::size_t some = std::min(most, frameNum - i);
            run(version, task, wave, start + i, some, work.get(), pf + i * task.stride);
        }
    }
    for (std::size_t i = 0; i < frameNum; ++i)
        for (std::size_t lag = task.lags; lag < task.stride; ++lag) {
            const double terms = static_cast<double>(task.frameSize) - static_cast<double>(lag);
            pf[i * task.stride + lag] = task.average ? 0.0 / terms : 0.0;
        }
}

void subtractMean(double* frame, int frameSize) {
    double sum = 0.0;
    for (int j = 0; j < frameSize; ++j) sum += frame[j];
    const double mean = sum / frameSize;
    for (int j = 0; j < frameSize; ++j) frame[j] -= mean;
}

void subtractMean(int* frame, int frameSize) {
    wavepitch::pitchFunction::version().removeMean(frame, static_cast<std::size_t>(frameSize));
}

constexpr int startOfOne = 0;

bool isKnown(int method) {
    return method >= 1 && method <= 4;
}

} // namespace

template <typename T1, typename T2>
void frame2amdf(const T1* frame, int frameSize, T2* amdf, int pfLen, int method) {
    if (!isKnown(method)) unknownMethod(PF_AMDF, frame);
    pitchFunctions(taskOf(frameSize, pfLen, false, method), frame, &startOfOne, 1, amdf);
}

template <typename T1, typename T2>
void frame2acf(T1* frame, int frameSize, T2* acf, int pfLen, int method, int removeMean) {
    if (removeMean && frameSize > 0) subtractMean(frame, frameSize);
    if (!isKnown(method)) unknownMethod(PF_ACF, frame);
    const T1* samples = frame;
    pitchFunctions(taskOf(frameSize, pfLen, true, method), samples, &startOfOne, 1, acf);
}

template <typename T1, typename T2>
void wave2pfMat(const T1* wave, int waveLen, int frameSize, int overlap, int pfLen, PF_TYPE pfType,
                int pfMethod, T2* pfMat) {
    const int frameNum = cAudioFraming::getFrameNum2(waveLen, frameSize, overlap);
    if (frameSize < 0 || frameNum < 1) return;
    if (pfType != PF_AMDF && pfType != PF_ACF)
        myExitFormatted("Unknown pfType=%d (line %d of file %s)", static_cast<int>(pfType), __LINE__,
                        audioSourcePath);
    if (!isKnown(pfMethod)) unknownMethod(pfType, wave);
    Task task = taskOf(frameSize, pfLen, pfType == PF_ACF, pfMethod);
    task.flip = pfMethod > 2;
    task.removeMean = pfType == PF_ACF;
    std::vector<int> start(static_cast<std::size_t>(frameNum));
    cAudioFraming::buffer2(waveLen, frameSize, overlap, start.data());
    pitchFunctions(task, wave, start.data(), start.size(), pfMat);
}

template void wave2pfMat(const double*, int, int, int, int, PF_TYPE, int, double*);
template void wave2pfMat(const int*, int, int, int, int, PF_TYPE, int, double*);
template void frame2amdf(const double*, int, double*, int, int);
template void frame2amdf(const int*, int, double*, int, int);
template void frame2acf(double*, int, double*, int, int, int);
template void frame2acf(int*, int, double*, int, int, int);
