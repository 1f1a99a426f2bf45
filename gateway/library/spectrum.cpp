// Spectrograms and the unvoiced cut.

#include "framing.hpp"

#include "audio/audio.hpp"

#include <bit>

namespace {

constexpr int mostPaddedSize = 1 << 24;
constexpr int mostUvCutFrame = 512;

int readPaddedSize(const Options& options, const Call& call, int frameSize) {
    const auto usual = static_cast<int>(std::bit_ceil(static_cast<unsigned>(frameSize)));
    const int size = options.whole("paddedSize", usual, frameSize, mostPaddedSize);
    if (!std::has_single_bit(static_cast<unsigned>(size))) call.refuse("PADDEDSIZE must be a power of 2");
    return size;
}

} // namespace

void absSpectrogramCommand(Call& call) {
    const Numbers wave = call.input(0, "WAVE").unitSamples();
    const int fs = call.input(1, "FS").whole(1);
    const Options options = call.options(2, {"frameSize", "overlap", "paddedSize", "hamming"});
    const Framing framing = readFraming(options, fs, wave.length(), mostPaddedSize);
    const int paddedSize = readPaddedSize(options, call, framing.frameSize);
    const int bins = paddedSize / 2 + 1;
    const double transform = 4.0 * paddedSize; // the values that it works on, and its sines and cosines
    const double spectra = static_cast<double>(bins) * framing.frameNum();
    requireRoom(call, transform + spectra, "PADDEDSIZE and OVERLAP");
    mxArray* magnitude = matrix(call, bins, framing.frameNum());
    cAudio::absSpectrogram(wave.data(), framing.waveLen, framing.frameSize, framing.overlap, paddedSize,
                           options.flag("hamming", true) ? 1 : 0, mxGetPr(magnitude));
    call.give(0, magnitude);
    if (call.wants(1)) {
        mxArray* frequency = matrix(call, bins, 1);
        for (int k = 0; k < bins; ++k) mxGetPr(frequency)[k] = static_cast<double>(k) * fs / paddedSize;
        call.give(1, frequency);
    }
    if (call.wants(2)) call.give(2, framing.time());
}

void uvCutCommand(Call& call) {
    const Argument input = call.input(0, "WAVE");
    const std::vector<int> wave = input.samples(16);
    const int fs = call.input(1, "FS").whole(1);
    const Options options = call.options(2, {"frameSize", "overlap"});
    const Framing framing = readFraming(options, fs, static_cast<int>(wave.size()), mostUvCutFrame);
    const double first =
        framing.firstSample(cAudio::uvCut(wave.data(), framing.waveLen, framing.frameSize, framing.overlap));
    call.give(0, scalar(first));
    if (call.wants(1)) call.give(1, scalar((first - 1) / fs));
}
