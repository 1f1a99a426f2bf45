#include "support/operations.hpp"

#include "audio/audio.hpp"
#include "utility/utility.hpp"

#include <cstdlib>
#include <utility>

namespace {

constexpr int frameSize = 301;
constexpr int overlap = 100;

Doubles zeros(int count) {
    return Doubles(static_cast<std::size_t>(count));
}

template <typename... Values>
Doubles row(Values... values) {
    return {static_cast<double>(values)...};
}

Doubles fields(const PTPARAM& p) {
    return row(p.fs, p.nbits, p.pfType, p.frameSize, p.overlap, p.pfLen, p.ppcNum, p.minPitch, p.maxPitch,
               p.pitchRangeMax, p.pitchDiffMax, p.maxMedianPitchDiff, p.dpMethod, p.dpPosDiffOrder,
               p.dpUseLocalOptim, p.pfWeight, p.indexDiffWeight, p.useVolThreshold, p.useClarityThreshold,
               p.clarityRatio, p.medianFilterOrder, p.cutLeadingTrailingZero, p.maxAmdfLocalMinCount,
               p.minAmdfRange, p.halfOfFs, p.halfOfNbits, p.frameRate, p.minIndex, p.maxIndex,
               p.useClarityWeight);
}

class Operations {
public:
    Operations(const Recording& recording, GiveOutput giveOutput)
        : fs(recording.fs), samples(recording.wave), unit(samples.begin(), samples.end()),
          waveLen(lengthOf(samples)), frameNum(cAudio::getFrameNum2(waveLen, frameSize, overlap)),
          giveTo(std::move(giveOutput)) {
        for (double& sample : unit) sample /= 32768;
        pitch();
        voice();
        endPoints();
        features();
        spectra();
        waveforms();
        sounds();
        matching();
    }

private:
    template <typename Values>
    void give(const std::string& output, const Values& values) {
        giveTo(output, Doubles(values.begin(), values.end()));
    }

    void pitch() {
        for (const PF_TYPE type : {PF_AMDF, PF_ACF}) {
            PTPARAM param{};
            cAudio::ptParamSet(&param, fs, 16, type, nullptr);
            give(type == PF_ACF ? "ptParam.1" : "ptParam AMDF.1", fields(param));
            if (type == PF_AMDF) {
                param.minPitch = 45;
                param.medianFilterOrder = 3;
                param.useVolThreshold = 0;
            }
            const int count = cAudio::getFrameNum2(waveLen, param.frameSize, param.overlap);
            Doubles semitones = zeros(count);
            Doubles clarity = zeros(count);
            Doubles pfMat = zeros(count * param.pfLen);
            ptByDpOverPfOnce<double, int>(samples.data(), waveLen, param, semitones.data(), clarity.data(),
                                          pfMat.data(), nullptr);
            const std::string call = type == PF_ACF ? "wave2pitch." : "wave2pitch AMDF.";
            give(call + "1", semitones);
            give(call + "3", clarity);
            give(call + "4", pfMat);
        }
        Doubles pfMat = zeros(100 * frameNum);
        wave2pfMat<double, double>(unit.data(), waveLen, frameSize, overlap, 100, PF_ACF, 3, pfMat.data());
        give("wave2pfMat.1", pfMat);
        const std::vector<short> shorts(samples.begin(), samples.end());
        int* pv = nullptr;
        int pvLen = 0;
        cAudio::bGetPitch(shorts, pv, pvLen, fs, 16);
        give("wave2pv.1", Ints(pv, pv + pvLen));
        std::free(pv);
        give("isWaveSilence.1", row(cAudio::isWaveSilence(shorts, fs, 16, 20000)));
    }

    void voice() {
        VOICEPARAM param;
        param.fs = fs;
        param.minFreq = 80;
        param.maxFreq = 500;
        param.frameRate = 200;
        param.voicingThreshold = 0.5;
        const VOICESIZES sizes = voiceSizes(waveLen, param);
        Doubles f0 = zeros(sizes.frameNum);
        Doubles strength = zeros(sizes.frameNum);
        std::vector<float> correlation(zeros(sizes.frameNum * sizes.lagNum).size());
        wave2f0(samples.data(), waveLen, param, f0.data(), strength.data(), correlation.data());
        give("wave2f0.1", f0);
        give("wave2f0.3", strength);
        give("wave2f0.5", correlation);
    }

    void endPoints() {
        EPDPARAM param;
        cAudio::epdParamSet(fs, param);
        give("endPoints.1", segments(cAudio::epdByVol, param));
        param.vhRatio = 20;
        param.diffOrder = 2;
        give("endPoints volumeHod.1", segments(cAudio::epdByVolHod, param));
        Ints ends(static_cast<std::size_t>(frameNum));
        ends.resize(static_cast<std::size_t>(cAudio::epdByVol2(samples.data(), waveLen, 0, ends.data(), 0)));
        give("endPoints twoThreshold, frames", ends);
        ends.resize(2);
        cAudio::epdByVolZcr(samples.data(), waveLen, 0, ends.data(), &ends[1]);
        give("endPoints volumeZcr.1", ends);
        Doubles wave = unit;
        Doubles starts(100);
        Doubles lasts(100);
        cAudio::charEndPointDetect(wave.data(), waveLen, fs, starts.data(), lasts.data(), 100);
        give("endPoints character, first samples", starts);
        give("endPoints character, last samples", lasts);
        wave = unit;
        cAudio::sentenceEndPointDetect(wave.data(), waveLen, fs, ends.data(), &ends[1]);
        give("endPoints sentence, samples", ends);
        Doubles span(2);
        wave = unit;
        cAudio::endPointDetect4quokka(wave.data(), waveLen, fs, 16, span.data());
        give("endPoints handset.1", span);
    }

    /// The first samples of all segments, then the last, from 1.
    Ints segments(decltype(cAudio::epdByVol)* detect, const EPDPARAM& param) {
        int count = 0;
        const SegmentArray found(detect(samples.data(), waveLen, fs, param, &count));
        Ints ends;
        for (int i = 0; i < count; ++i) ends.push_back(found.get()[i].begin * param.frameSize + 1);
        for (int i = 0; i < count; ++i) ends.push_back((found.get()[i].end + 1) * param.frameSize);
        return ends;
    }

    void features() {
        Ints values(static_cast<std::size_t>(frameNum));
        for (const int method : {1, 2, 3}) {
            wave2volume(samples.data(), waveLen, frameSize, overlap, values.data(), method);
            give(method == 2 ? "wave2volume.1" : "wave2volume method " + std::to_string(method), values);
        }
        cAudio::wave2zcr(samples.data(), waveLen, frameSize, overlap, values.data());
        give("wave2zcr.1", values);
        cAudio::wave2ashod(samples.data(), waveLen, frameSize, overlap, values.data(), 2);
        give("wave2ashod.1", values);
    }

    void spectra() {
        Doubles magnitude = zeros(513 * frameNum);
        cAudio::absSpectrogram(unit.data(), waveLen, frameSize, overlap, 1024, 0, magnitude.data());
        give("absSpectrogram.1", magnitude);
        const int cut = cAudio::uvCut(samples.data(), waveLen, frameSize, overlap);
        give("uvCut.1", row(cut * (frameSize - overlap) + 1));
    }

    void waveforms() {
        Doubles frames;
        for (auto frame = unit.begin(); unit.end() - frame >= frameSize; frame += frameSize - overlap)
            frames.insert(frames.end(), frame, frame + frameSize);
        give("wave2frames.1", frames);
        give("waveVolumeCheck.1", row(cAudio::waveVolumeCheck(samples.data(), waveLen, nullptr)));
        const Doubles b{1, -0.95};
        const Doubles a{1, 0.5, 0.2};
        Doubles changed = unit;
        cAudio::filter(b.data(), 2, a.data(), 3, changed.data(), waveLen);
        give("waveFilter.1", changed);
        cAudio::waveEcho(unit.data(), waveLen, fs, 0.1, 0.5, changed.data());
        give("waveEcho.1", changed);
        Ints resampled(static_cast<std::size_t>((waveLen - 1L) * 5000 / fs + 1));
        cAudio::waveResample(samples.data(), waveLen, fs, 5000, resampled.data(), lengthOf(resampled));
        give("waveResample.1", resampled);
    }

    void sounds() {
        const Doubles pitch{60, 0, 67};
        const Doubles duration{0.3, 0.1, 0.25};
        Doubles wave = zeros(4801);
        cAudio::pitch2wave(pitch.data(), 3, 4, 8000, wave.data(), 4801);
        give("pitch2wave.1", wave);
        wave = zeros(5200);
        cAudio::note2wave(pitch.data(), 3, duration.data(), 8000, wave.data(), 5200);
        give("note2wave.1", wave);
        const Doubles notes{60, 0.3, 0, 0.1, 67, 0.25};
        Doubles pv = zeros(15);
        cAudio::note2pv(notes.data(), 6, 0.044, pv.data(), 15);
        give("note2pv.1", pv);
        give("pitch2freq.1", row(cAudio::pitch2freq(70.5F)));
        give("freq2pitch.1", row(cAudio::freq2pitch(441.5F)));
    }

    void matching() {
        const Doubles query{1, 3, 2, 5};
        const Doubles song{7, 8, 9, 9, 8, 8, 11, 11};
        Doubles distances = zeros(9);
        Doubles scaled = zeros(8);
        int best = 0;
        linearScaling(query.data(), 4, song.data(), 8, 0.8, 1.6, 9, 2, distances.data(), scaled.data(), best);
        give("linearScaling.3", distances);
        const Doubles hum{57, 59, 59, 61};
        const Doubles tunes[] = {{67, 67, 65, 62, 60, 60}, {60, 62, 62, 64, 64, 60, 67}};
        const TUNE everywhere[] = {{tunes[0].data(), 6, nullptr, 0}, {tunes[1].data(), 7, nullptr, 0}};
        TUNEMATCH match[2];
        findTune(hum.data(), 4, everywhere, 2, {0.8, 1.6, 9, 2}, match, 2);
        give("findTune.1", Ints{match[0].tune + 1, match[1].tune + 1});
        give("findTune.2", Doubles{match[0].distance, match[1].distance});
        double shift = 0;
        give("lrShiftDist.1", row(lrShiftDist(query.data(), 4, song.data(), 8, 2, shift, best)));
        Doubles sets{1, 3, 5, 6, 2, 4, 0, 1, 0, 5, 0, 0};
        Ints chosen(2);
        Doubles coverage(2);
        setCover(sets.data(), 4, 3, 2, chosen.data(), coverage.data());
        give("setCover.2", coverage);
    }

    int fs;
    Ints samples; // of 16 bits
    Doubles unit; // from -1 to 1
    int waveLen;
    int frameNum;
    GiveOutput giveTo;
};

} // namespace

void runOperations(const Recording& recording, const GiveOutput& give) {
    Operations(recording, give);
}
