// Pitch functions of a recording.

#include "results.hpp"

#include "audio/audio.hpp"

#include <algorithm>

void wave2pfMatCommand(Call& call) {
    const Numbers wave = call.input(0, "WAVE").unitSamples();
    const int waveLen = wave.length();
    const int frameSize = call.input(1, "FRAMESIZE").whole(1);
    const int overlap = call.input(2, "OVERLAP").whole(0, frameSize - 1);
    const int pfLen = call.input(3, "PFLEN").whole(1);
    const int pfType = call.input(4, "PFTYPE").choice({{"amdf", PF_AMDF}, {"acf", PF_ACF}}, true);
    const int pfMethod = call.input(5, "PFMETHOD").whole(1, 4);
    mxArray* pfMat = matrix(call, pfLen, std::max(0, cAudio::getFrameNum2(waveLen, frameSize, overlap)),
                            "PFLEN and OVERLAP");
    wave2pfMat<double, double>(wave.data(), waveLen, frameSize, overlap, pfLen, static_cast<PF_TYPE>(pfType),
                               pfMethod, mxGetPr(pfMat));
    call.give(0, pfMat);
}
