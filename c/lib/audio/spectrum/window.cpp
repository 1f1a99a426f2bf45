#include "audio/spectrum/window.hpp"

#include "audio/constants.hpp"
#include "audio/spectrum/spectrum.hpp"

#include <algorithm>
#include <cmath>

double wavepitch::spectrum::hammingValue(int i, int frameSize) {
    return 0.54 - 0.46 * std::cos(i * twoPi / (frameSize - 1));
}

std::vector<double> wavepitch::spectrum::hammingWindow(int frameSize) {
    std::vector<double> window;
    window.reserve(static_cast<std::size_t>(std::max(frameSize, 0)));
    for (int i = 0; i < frameSize; ++i) window.push_back(hammingValue(i, frameSize));
    return window;
}

void cAudioSpectrum::hammingWindowing(float* frame, int frameSize) {
    for (int i = 0; i < frameSize; ++i) {
        const double product =
            wavepitch::spectrum::hammingValue(i, frameSize) * static_cast<double>(frame[i]);
        frame[i] = static_cast<float>(product);
    }
}
