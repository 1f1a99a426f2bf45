// The stages of bGetPitch: to 8 kHz, to 8 bits; a first pass over the whole pitch range; a second one around
// its median; a third one around the median of the second inside the sound; a fourth one around the median of
// the third. Each pass narrows the search to an octave below and above where the voice is, so that most
// octave errors of single frames find no candidates in the next pass.
#include "audio/pitchTracking/recording.hpp"

#include "audio/endPoint/detectors.hpp"
#include "audio/endPoint/endPoint.hpp"
#include "audio/failure.hpp"
#include "audio/framing/sampleSource.hpp"
#include "audio/pitchTracking/medianFilter.hpp"
#include "audio/pitchTracking/param.hpp"
#include "audio/pitchTracking/postProcess.hpp"
#include "audio/pitchTracking/soundMask.hpp"
#include "audio/pitchTracking/tracker.hpp"
#include "audio/waveform/resampling.hpp"
#include "utility/fatal.hpp"
#include "utility/interruption.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <vector>

#include "mex.h"

namespace {

using wavepitch::framing::SampleSource;
using wavepitch::pitchTracking::applyMask;
using wavepitch::pitchTracking::soundMask;
using wavepitch::pitchTracking::trimmedTenths;

constexpr int targetRate = 8000;

/// Fatal path A for a recording whose samples int cannot count.
void checkLength(const char* operation, const std::vector<short>& recording) {
    if (recording.size() > INT_MAX)
        myExitFormatted("%s: wave has %zu samples, more than %d (line %d of file %s)", operation,
                        recording.size(), INT_MAX, __LINE__, audioSourcePath);
}

/// A recording at another rate, or reduced to 8 bits, or both; converted as it is read. The operation reads
/// it about ten times, so what fits in a fixed room is resampled but once.
class ConvertedSamples final : public SampleSource {
public:
    ConvertedSamples(const std::vector<short>& wave, int oldFs, int newFs, int newLen, bool to8Bits)
        : SampleSource(newLen), resampling{wave.data(), static_cast<int>(wave.size()), oldFs, newFs, newLen},
          isReduced(to8Bits), held(wave.data()), heldLen(newLen) {
        if (oldFs != newFs) resampleOnce();
    }

    const int* read(std::int64_t first, int sampleNum) override {
        const auto room = static_cast<std::size_t>(sampleNum);
        if (stretch.size() < room) stretch.resize(room);
        if (first + sampleNum <= heldLen)
            std::copy_n(held + first, sampleNum, stretch.begin());
        else
            resampling.read(static_cast<int>(first), sampleNum, stretch.data());
        if (isReduced)
            for (std::size_t i = 0; i < room; ++i) stretch[i] /= 256;
        return stretch.data();
    }

private:
    void resampleOnce() {
        constexpr int most = 1 << 26; // two hours at the tracker's rate
        constexpr int atATime = 1 << 12;
        heldLen = std::min(length(), most);
        resampled.resize(static_cast<std::size_t>(heldLen));
        held = resampled.data();
        stretch.resize(atATime);
        for (int first = 0; first < heldLen; first += atATime) {
            wavepitch::utility::askForInterruption();
            const int sampleNum = std::min(atATime, heldLen - first);
            resampling.read(first, sampleNum, stretch.data());
            std::transform(stretch.begin(), stretch.begin() + sampleNum, resampled.begin() + first,
                           [](int sample) { return static_cast<short>(sample); });
        }
    }

    wavepitch::waveform::Resampling<short> resampling;
    bool isReduced;
    std::vector<short> resampled; // the front of the recording
    const short* held;            // samples that need no resampling any more
    int heldLen;
    std::vector<int> stretch;
};

/// Samples that cover a recording at the tracker's rate.
int lengthAtTargetRate(int waveLen, int fs) {
    if (waveLen < 1 || fs < 1) return 0;
    const double length = std::floor((waveLen - 1.0) * targetRate / fs) + 1.0;
    if (length > INT_MAX)
        myExitFormatted("bGetPitch: wave has %d samples at fs=%d, which are %.0f at %d: more than %d "
                        "(line %d of file %s)",
                        waveLen, fs, length, targetRate, INT_MAX, __LINE__, audioSourcePath);
    return static_cast<int>(length);
}

/// Says what is converted.
ConvertedSamples samplesForTracking(const std::vector<short>& recording, int fs, int nbits) {
    auto length = static_cast<int>(recording.size());
    if (fs != targetRate) {
        mexPrintf("fs=%d ===> Resample to have fs=%d\n", fs, targetRate);
        length = lengthAtTargetRate(length, fs);
    }
    if (nbits == 16) mexPrintf("nbits=%d ===> Convert from nbits=16 to 8!\n", nbits);
    return {recording, fs, targetRate, length, nbits == 16};
}

/// Searches around a pitch from now on.
void centre(PTPARAM& ptParam, double pitch) {
    const auto middle = static_cast<float>(pitch);
    ptParam.minPitch = middle - 0.5F * ptParam.pitchRangeMax;
    ptParam.maxPitch = middle + 0.5F * ptParam.pitchRangeMax;
}

std::vector<bool> soundOf(SampleSource& samples, const PTPARAM& ptParam, int frameNum) {
    EPDPARAM epdParam;
    cAudioEndPoint::epdParamSet(targetRate, epdParam);
    epdParam.volRatio = 16;
    epdParam.volWeight = 1.0F;
    int segNum = 0;
    const SegmentArray segments =
        wavepitch::endPoint::segmentsByVolumeAndAshod(samples, targetRate, epdParam, segNum);
    return soundMask(segments.get(), segNum, epdParam, ptParam, frameNum);
}

} // namespace

bool cAudioRecording::bGetPitch(const std::vector<short>& wave, int*& out, int& outLen, int fs, int nbits) {
    checkLength("bGetPitch", wave);
    ConvertedSamples samples = samplesForTracking(wave, fs, nbits);
    PTPARAM ptParam;
    cAudioPitchParam::ptParamSet(&ptParam, targetRate, nbits == 16 ? 8 : nbits, PF_ACF, nullptr);
    ptParam.pfWeight = 1.0F;
    ptParam.indexDiffWeight = 200.0F;
    wavepitch::pitchTracking::TrackedWave recording(samples, ptParam);
    const int frameNum = recording.framed().frameNum;
    std::vector<double> pitch(static_cast<std::size_t>(frameNum));
    const auto track = [&] {
        return wavepitch::pitchTracking::track(recording, ptParam, pitch.data(), nullptr, nullptr, nullptr,
                                               wavepitch::pitchTracking::framesInCache(ptParam.pfLen));
    };

    centre(ptParam, getPitchMedian(pitch.data(), track()));
    track();
    const std::vector<bool> sound = soundOf(samples, ptParam, frameNum);
    applyMask(sound, pitch.data());
    centre(ptParam, getPitchMedian(pitch.data(), frameNum));
    centre(ptParam, getPitchMedian(pitch.data(), track()));
    track();
    applyMask(sound, pitch.data());
    cAudioPitchPostProcess::limitPitch(pitch.data(), frameNum, 34.0F, 90.0F);
    out = trimmedTenths(pitch.data(), frameNum, outLen);
    return true;
}

bool cAudioRecording::isWaveSilence(const std::vector<short>& wave, int fs, int nbits, int volTh) {
    checkLength("isWaveSilence", wave);
    const bool to8Bits = fs == targetRate && nbits == 16;
    ConvertedSamples samples(wave, fs, fs, static_cast<int>(wave.size()), to8Bits);
    if (to8Bits) nbits = 8;
    PTPARAM ptParam;
    cAudioPitchParam::ptParamSet(&ptParam, fs, nbits, PF_ACF, nullptr);
    const wavepitch::endPoint::Levels volume =
        wavepitch::endPoint::frameVolumes(samples, {ptParam.frameSize, ptParam.overlap});
    if (volume.empty()) return false;
    const double threshold =
        std::ldexp(ptParam.frameSize * 0.00390625 * volTh, clampToInt(std::int64_t{nbits} - 8));
    return threshold > *std::max_element(volume.begin(), volume.end());
}
