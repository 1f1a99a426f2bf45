#include "audio/endPoint/zeroCrossing.hpp"

#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/wholeFrames.hpp"

void cAudioZeroCrossing::wave2zcr(const int* wave, int waveLen, int frameSize, int overlap, int* zcr) {
    const auto crossings = wavepitch::endPoint::frameKernel().crossings;
    featurePerFrame(wave, waveLen, frameSize, overlap, zcr,
                    [=](const int* frame) { return crossings(frame, static_cast<std::size_t>(frameSize)); });
}
