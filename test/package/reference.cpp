// reference WAVE DIR: what the library itself computes for calls in calls.json, without a module or a host.
// WAVE is a recording of examples/; output N of the call NAME becomes the file DIR/NAME.N of doubles.

#include "audio/audio.hpp"
#include "utility/utility.hpp"

#include "support/recording.hpp"
#include "support/vectors.hpp"

#include <cstdlib>

namespace {

constexpr int frameSize = 301;
constexpr int overlap = 100;

std::string directory;
int fs = 0;
int waveLen = 0;
int frameNum = 0;
Ints samples; // of 16 bits
Doubles unit; // from -1 to 1

void read(const std::string& file) {
    const Recording recording = readRecording(file);
    fs = recording.fs;
    samples = recording.wave;
    unit.assign(samples.begin(), samples.end());
    for (double& sample : unit) sample /= 32768;
    waveLen = lengthOf(samples);
    frameNum = cAudio::getFrameNum2(waveLen, frameSize, overlap);
}

template <typename Values>
void give(const std::string& call, int output, const Values& values) {
    const Doubles numbers(values.begin(), values.end());
    const std::string file = directory + "/" + call + "." + std::to_string(output);
    fileWrite(file.c_str(), reinterpret_cast<const char*>(numbers.data()),
              static_cast<long>(numbers.size() * sizeof(double)));
}

Doubles zeros(int count) {
    return Doubles(static_cast<std::size_t>(count));
}

void pitch() {
    for (const PF_TYPE type : {PF_AMDF, PF_ACF}) {
        PTPARAM param{};
        cAudio::ptParamSet(&param, fs, 16, type, nullptr);
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
        const std::string call = type == PF_ACF ? "wave2pitch" : "wave2pitch AMDF";
        give(call, 1, semitones);
        give(call, 3, clarity);
        give(call, 4, pfMat);
    }
    Doubles pfMat = zeros(100 * frameNum);
    wave2pfMat<double, double>(unit.data(), waveLen, frameSize, overlap, 100, PF_ACF, 3, pfMat.data());
    give("wave2pfMat", 1, pfMat);
    const std::vector<short> shorts(samples.begin(), samples.end());
    int* pv = nullptr;
    int pvLen = 0;
    cAudio::bGetPitch(shorts, pv, pvLen, fs, 16);
    give("wave2pv", 1, Ints(pv, pv + pvLen));
    std::free(pv);
    give("isWaveSilence", 1, Ints{cAudio::isWaveSilence(shorts, fs, 16, 20000)});
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
    give("wave2f0", 1, f0);
    give("wave2f0", 3, strength);
    give("wave2f0", 5, correlation);
}

void endPoints() {
    EPDPARAM param;
    cAudio::epdParamSet(fs, param);
    param.vhRatio = 20;
    param.diffOrder = 2;
    int count = 0;
    const SegmentArray segments(cAudio::epdByVolHod(samples.data(), waveLen, fs, param, &count));
    Ints ends;
    for (int i = 0; i < count; ++i) ends.push_back(segments.get()[i].begin * param.frameSize + 1);
    for (int i = 0; i < count; ++i) ends.push_back((segments.get()[i].end + 1) * param.frameSize);
    give("endPoints volumeHod", 1, ends);
}

void features() {
    Ints values(static_cast<std::size_t>(frameNum));
    wave2volume(samples.data(), waveLen, frameSize, overlap, values.data(), 2);
    give("wave2volume", 1, values);
    cAudio::wave2zcr(samples.data(), waveLen, frameSize, overlap, values.data());
    give("wave2zcr", 1, values);
    cAudio::wave2ashod(samples.data(), waveLen, frameSize, overlap, values.data(), 2);
    give("wave2ashod", 1, values);
}

void spectra() {
    Doubles magnitude = zeros(513 * frameNum);
    cAudio::absSpectrogram(unit.data(), waveLen, frameSize, overlap, 1024, 0, magnitude.data());
    give("absSpectrogram", 1, magnitude);
    const int cut = cAudio::uvCut(samples.data(), waveLen, frameSize, overlap);
    give("uvCut", 1, Ints{cut * (frameSize - overlap) + 1});
}

} // namespace

int main(int, char** argv) {
    read(argv[1]);
    directory = argv[2];
    pitch();
    voice();
    endPoints();
    features();
    spectra();
}
