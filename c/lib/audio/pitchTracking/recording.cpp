// The stages of bGetPitch: to 8 kHz, to 8 bits; a first pass over the whole pitch range; a second one around
// its median; a third one around the median of the second inside the sound; a fourth one around the median of
// the third. Each pass narrows the search to an octave below and above where the voice is, so that most
// octave errors of single frames find no candidates in the next pass.
#include "audio/pitchTracking/recording.hpp"

#include "audio/endPoint/endPoint.hpp"
#include "audio/failure.hpp"
#include "audio/framing/wholeFrames.hpp"
#include "audio/pitchTracking/medianFilter.hpp"
#include "audio/pitchTracking/param.hpp"
#include "audio/pitchTracking/postProcess.hpp"
#include "audio/pitchTracking/soundMask.hpp"
#include "audio/pitchTracking/tracker.hpp"
#include "audio/waveform/waveform.hpp"
#include "utility/fatal.hpp"
#include "utility/rounding.hpp"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <utility>

#include "mex.h"

namespace {

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

/// Integer samples and what they are.
struct Samples {
    std::vector<int> wave;
    int fs;
    int nbits;

    Samples(const std::vector<short>& recording, int rate, int bits)
        : wave(recording.begin(), recording.end()), fs(rate), nbits(bits) {}

    int length() const { return static_cast<int>(wave.size()); }

    void reduceTo8Bits() {
        for (int& sample : wave) sample /= 256;
        nbits = 8;
    }
};

void resample(Samples& samples) {
    mexPrintf("fs=%d ===> Resample to have fs=%d\n", samples.fs, targetRate);
    std::vector<int> resampled;
    if (samples.length() > 0 && samples.fs > 0) {
        const double length = std::floor((samples.length() - 1.0) * targetRate / samples.fs) + 1.0;
        if (length > INT_MAX)
            myExitFormatted("bGetPitch: wave has %d samples at fs=%d, which are %.0f at %d: more than %d "
                            "(line %d of file %s)",
                            samples.length(), samples.fs, length, targetRate, INT_MAX, __LINE__,
                            audioSourcePath);
        resampled.resize(static_cast<std::size_t>(length));
        cAudioWaveform::waveResample(samples.wave.data(), samples.length(), samples.fs, targetRate,
                                     resampled.data(), static_cast<int>(resampled.size()));
    }
    samples.wave = std::move(resampled);
    samples.fs = targetRate;
}

Samples preparedForTracking(const std::vector<short>& recording, int fs, int nbits) {
    Samples samples(recording, fs, nbits);
    if (samples.fs != targetRate) resample(samples);
    if (samples.nbits == 16) {
        mexPrintf("nbits=%d ===> Convert from nbits=16 to 8!\n", samples.nbits);
        samples.reduceTo8Bits();
    }
    return samples;
}

/// Searches around a pitch from now on.
void centre(PTPARAM& ptParam, double pitch) {
    const auto middle = static_cast<float>(pitch);
    ptParam.minPitch = middle - 0.5F * ptParam.pitchRangeMax;
    ptParam.maxPitch = middle + 0.5F * ptParam.pitchRangeMax;
}

std::vector<bool> soundOf(const Samples& samples, const PTPARAM& ptParam, int frameNum) {
    EPDPARAM epdParam;
    cAudioEndPoint::epdParamSet(samples.fs, epdParam);
    epdParam.volRatio = 16;
    epdParam.volWeight = 1.0F;
    int segNum = 0;
    const SegmentArray segments(
        cAudioEndPoint::epdByVolHod(samples.wave.data(), samples.length(), samples.fs, epdParam, &segNum));
    return soundMask(segments.get(), segNum, epdParam, ptParam, frameNum);
}

} // namespace

bool cAudioRecording::bGetPitch(const std::vector<short>& wave, int*& out, int& outLen, int fs, int nbits) {
    checkLength("bGetPitch", wave);
    const Samples samples = preparedForTracking(wave, fs, nbits);
    PTPARAM ptParam;
    cAudioPitchParam::ptParamSet(&ptParam, samples.fs, samples.nbits, PF_ACF, nullptr);
    ptParam.pfWeight = 1.0F;
    ptParam.indexDiffWeight = 200.0F;
    std::vector<double> pitch =
        wavepitch::framing::valuePerFrame<double>(samples.length(), ptParam.frameSize, ptParam.overlap);
    const auto frameNum = static_cast<int>(pitch.size());
    const auto track = [&] {
        return ptByDpOverPfOnce(samples.wave.data(), samples.length(), ptParam, pitch.data(), nullptr,
                                nullptr, nullptr);
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
    Samples samples(wave, fs, nbits);
    if (samples.fs == targetRate && samples.nbits == 16) samples.reduceTo8Bits();
    PTPARAM ptParam;
    cAudioPitchParam::ptParamSet(&ptParam, samples.fs, samples.nbits, PF_ACF, nullptr);
    std::vector<int> volume =
        wavepitch::framing::valuePerFrame<int>(samples.length(), ptParam.frameSize, ptParam.overlap);
    if (volume.empty()) return false;
    wave2volume(samples.wave.data(), samples.length(), ptParam.frameSize, ptParam.overlap, volume.data(), 1);
    const double threshold =
        std::ldexp(ptParam.frameSize * 0.00390625 * volTh, clampToInt(std::int64_t{samples.nbits} - 8));
    return threshold > *std::max_element(volume.begin(), volume.end());
}
