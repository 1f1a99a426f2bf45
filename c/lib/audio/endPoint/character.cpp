// 1. The mean is taken off the waveform; each frame's energy in dB is measured.
// 2. Cores: runs of frames within 20 dB of the loudest.
// 3. Short cores go.
// 4. Cores widen over frames within 30 dB; of those that then coincide, the last stays.
// 5. Frames become samples.
// Until step 5, the caller's two lists hold frame numbers; a character that goes leaves -1 in both.
#include "audio/endPoint/character.hpp"

#include "audio/endPoint/curves.hpp"
#include "audio/endPoint/segment.hpp"
#include "audio/endPoint/wholeFrames.hpp"
#include "utility/rounding.hpp"

#include <cmath>
#include <numeric>

#include "mex.h"

namespace {

constexpr int frameSize = endPointCurve::characterFrames.frameSize;
constexpr int overlap = endPointCurve::characterFrames.overlap;
constexpr int step = frameSize - overlap;
constexpr double emptySlot = -1.0;
constexpr double coreDepth = 20.0; // dB below the loudest frame
constexpr double neighbourDepth = 30.0;

using Levels = std::vector<double>;

/// The caller's lists.
struct Characters {
    double* start;
    double* end;
    int slots;

    void remove(int i) const { start[i] = end[i] = emptySlot; }

    /// @return  the number of characters, which are the first slots now.
    int pack() const {
        packCharIndex(start, slots);
        packCharIndex(end, slots);
        return static_cast<int>(std::find(start, start + slots, emptySlot) - start);
    }
};

/// @return  whether the mean is a number that can be taken off.
bool removeMean(double* wave, int waveLen) {
    if (waveLen < 1) return false;
    const double mean = std::accumulate(wave, wave + waveLen, 0.0) / waveLen;
    if (!std::isfinite(mean)) return false;
    for (int i = 0; i < waveLen; ++i) wave[i] -= mean;
    return true;
}

double decibelsOf(const double* frame) {
    double sum = 0.0;
    for (int i = 0; i < frameSize; ++i) sum += frame[i] * frame[i];
    const double meanSquare = sum / frameSize;
    return meanSquare == 0.0 ? -2147483647.0 : 10.0 * std::log10(meanSquare);
}

void recordCores(const Levels& level, double threshold, const Characters& characters) {
    std::vector<int> core(level.size());
    std::transform(level.begin(), level.end(), core.begin(), [=](double dB) { return dB >= threshold; });
    int coreNum = 0;
    const SegmentArray cores(segmentFind(core.data(), static_cast<int>(core.size()), &coreNum));
    for (int i = 0; i < std::min(coreNum, characters.slots); ++i) {
        characters.start[i] = cores.get()[i].begin;
        characters.end[i] = cores.get()[i].end;
    }
    if (coreNum > characters.slots)
        mexPrintf("Warning: some characters are not recorded due to limited length!\n");
}

void removeShort(const Characters& characters, double minLength) {
    for (int i = 0; i < characters.slots; ++i)
        if (characters.end[i] - characters.start[i] < minLength) characters.remove(i);
}

void widen(const Levels& level, double threshold, const Characters& characters, int count) {
    const auto above = [&](double frame) { return level[static_cast<std::size_t>(frame)] > threshold; };
    const auto frameNum = static_cast<double>(level.size());
    for (int i = 0; i < count; ++i) {
        double& start = characters.start[i];
        double& end = characters.end[i];
        if (i > 0 && characters.end[i - 1] >= start) { // the one before has walked through this one
            start = characters.start[i - 1];
            end = characters.end[i - 1];
            continue;
        }
        while (start >= 1 && above(start - 1)) --start;
        while (end + 1 <= frameNum - 1 && above(end + 1)) ++end;
    }
}

void merge(const Characters& characters, int count) {
    for (int i = 0; i + 1 < count; ++i)
        if (characters.start[i] == characters.start[i + 1] && characters.end[i] == characters.end[i + 1])
            characters.remove(i);
}

Levels decibels(const double* wave, int waveLen) {
    auto level = valuePerFrame<double>(waveLen, frameSize, overlap);
    featurePerFrame(wave, waveLen, frameSize, overlap, level.data(), decibelsOf);
    return level;
}

} // namespace

endPointCurve::Curve endPointCurve::ofCharacters(const double* wave, int waveLen) {
    Curve curve{decibels(wave, waveLen), {}};
    if (curve.values.empty()) return curve;
    const double loudest = *std::max_element(curve.values.begin(), curve.values.end());
    curve.thresholds = {loudest - neighbourDepth, loudest - coreDepth};
    return curve;
}

void packCharIndex(double* list, int n) {
    if (n < 1) return;
    std::fill(std::remove(list, list + n, emptySlot), list + n, emptySlot);
}

void cAudioCharacter::packCharIndex(double* list, int n) {
    ::packCharIndex(list, n);
}

int cAudioCharacter::charEndPointDetect(double* wave, int waveLen, int fs, double* start, double* end,
                                        int maxNum) {
    const Characters characters{start, end, std::max(maxNum, 0)};
    std::fill(start, start + characters.slots, emptySlot);
    std::fill(end, end + characters.slots, emptySlot);
    if (!removeMean(wave, waveLen)) return 0;
    const Levels level = decibels(wave, waveLen);
    if (level.empty()) return 0;
    const double loudest = *std::max_element(level.begin(), level.end());

    recordCores(level, loudest - coreDepth, characters);
    const int shortest = fs / 1600; // in frames
    removeShort(characters, shortest);
    int count = characters.pack();
    widen(level, loudest - neighbourDepth, characters, count);
    merge(characters, count);
    count = characters.pack();
    for (int i = 0; i < count; ++i) {
        start[i] = step * start[i];
        end[i] = step * end[i] + (frameSize - 1);
    }
    return count;
}

void cAudioCharacter::sentenceEndPointDetect(double* wave, int waveLen, int fs, int* start, int* end) {
    constexpr int maxNum = 100;
    double starts[maxNum];
    double ends[maxNum];
    const int count = charEndPointDetect(wave, waveLen, fs, starts, ends, maxNum);
    *start = count > 0 ? truncateToInt(starts[0]) : -1;
    *end = count > 0 ? truncateToInt(ends[count - 1]) : -1;
}
