#include "framing.hpp"

#include "audio/audio.hpp"
#include "utility/interruption.hpp"
#include "utility/rounding.hpp"

#include <algorithm>

int Framing::frameNum() const {
    return std::max(0, cAudio::getFrameNum2(waveLen, frameSize, overlap));
}

mxArray* Framing::time(int first, int count) const {
    std::vector<double> centres(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        centres[static_cast<size_t>(i)] = ((static_cast<double>(first) + i) * step() + frameSize / 2.0) / fs;
    return row(centres);
}

Framing readFraming(const Options& options, int fs, int waveLen, int mostFrameSize) {
    const int usual = std::clamp(myRound(fs * 0.032), 2, mostFrameSize);
    const int frameSize = options.whole("frameSize", usual, 2, mostFrameSize);
    return {fs, frameSize, options.whole("overlap", frameSize / 2, 0, frameSize - 1), waveLen};
}

void wave2framesCommand(Call& call) {
    const Numbers wave = call.input(0, "WAVE").recording();
    const int fs = call.input(1, "FS").whole(1);
    const Options options = call.options(2, {"frameSize", "overlap"});
    const Framing framing = readFraming(options, fs, wave.length());
    const int frameNum = framing.frameNum();
    mxArray* frames = matrix(call, framing.frameSize, frameNum, "FRAMESIZE and OVERLAP");
    std::vector<int> start(static_cast<size_t>(frameNum));
    cAudio::buffer2(framing.waveLen, framing.frameSize, framing.overlap, start.data());
    double* out = mxGetPr(frames);
    wavepitch::utility::LongWork work;
    for (const int first : start) {
        work.took(static_cast<size_t>(framing.frameSize));
        out = std::copy_n(wave.data() + first, framing.frameSize, out);
    }
    call.give(0, frames);
    if (call.wants(1)) call.give(1, framing.time());
}
