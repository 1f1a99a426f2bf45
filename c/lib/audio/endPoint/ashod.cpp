#include "audio/endPoint/ashod.hpp"

#include "audio/endPoint/kernel/frameKernel.hpp"
#include "audio/endPoint/wholeFrames.hpp"
#include "utility/rounding.hpp"

#include <cstdlib>

#include "mex.h"

namespace {

using wavepitch::endPoint::FrameKernel;
using wavepitch::endPoint::frameKernel;

int ashodOf(const int* frame, int frameSize, int order, const FrameKernel& kernel) {
    return clampToInt(kernel.differences(frame, static_cast<std::size_t>(frameSize), order));
}

} // namespace

void ashodDetail::checkOrder(int order) {
    if (order >= 1 && order <= 5) return;
    mexPrintf("Unsupported order!\n");
    std::exit(1);
}

template <>
int frame2ashod(const int* frame, int frameSize, int order) {
    ashodDetail::checkOrder(order);
    return frameSize <= order ? 0 : ashodOf(frame, frameSize, order, frameKernel());
}

void cAudioAshod::wave2ashod(const int* wave, int waveLen, int frameSize, int overlap, int* ashod,
                             int order) {
    if (wholeFrameNum(waveLen, frameSize, overlap) == 0) return;
    ashodDetail::checkOrder(order);
    const FrameKernel kernel = frameKernel();
    featurePerFrame(wave, waveLen, frameSize, overlap, ashod,
                    [&](const int* frame) { return ashodOf(frame, frameSize, order, kernel); });
}
