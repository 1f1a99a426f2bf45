#include "audio/voice/layout.hpp"
#include "audio/voice/voice.hpp"

#include <algorithm>

namespace {

constexpr int leastBandRate = 8000; // Hz; enough for the harmonics of any voice
constexpr double window = 0.012;    // seconds that are correlated: short, so that onsets are followed

double lagRate(int fs) {
    return static_cast<double>(fs) / std::max(1, fs / leastBandRate);
}

/// Not-a-number lies in no range.
bool isWithin(double x, double low, double high) {
    return x >= low && x <= high;
}

constexpr double most = 1e9; // of a cost

} // namespace

const char* voiceParamFault(const VOICEPARAM& param) {
    if (param.fs < 4000 || param.fs > 192000) return "fs must be 4000 to 192000 Hz";
    if (!isWithin(param.minFreq, 20, most)) return "minFreq must be 20 Hz or more";
    if (!(param.maxFreq > param.minFreq)) return "maxFreq must be above minFreq";
    if (!isWithin(param.maxFreq, 0, lagRate(param.fs) / 4))
        return "maxFreq must be at most fs / max (1, floor (fs / 8000)) / 4";
    if (!isWithin(param.frameRate, 1, 1000)) return "frameRate must be 1 to 1000 frames per second";
    if (!isWithin(param.voicingThreshold, 0, 1)) return "voicingThreshold must be 0 to 1";
    if (!isWithin(param.candidateThreshold, 0, 1)) return "candidateThreshold must be 0 to 1";
    if (!isWithin(param.voicingCost, 0, most)) return "voicingCost must be 0 or more";
    if (!isWithin(param.lagCost, 0, most)) return "lagCost must be 0 or more";
    if (!isWithin(param.silenceLevel, -100, 0)) return "silenceLevel must be -100 to 0 dB";
    if (!isWithin(param.fundamentalShare, 0, 1)) return "fundamentalShare must be 0 to 1";
    return nullptr;
}

VOICESIZES voiceSizes(int waveLen, const VOICEPARAM& param) {
    const wavepitch::voice::Layout layout(waveLen, param);
    return {static_cast<int>(layout.frameNum), static_cast<int>(layout.lagNum),
            static_cast<int>(layout.minLag), layout.rate};
}

wavepitch::voice::Layout::Layout(int waveLength, const VOICEPARAM& param)
    : decimation(static_cast<std::size_t>(std::max(1, param.fs / leastBandRate))), rate(lagRate(param.fs)),
      frameRate(param.frameRate), windowLen(static_cast<std::size_t>(std::lround(window * rate))),
      minLag(static_cast<std::size_t>(std::floor(rate / param.maxFreq)) - 1),
      lagNum(static_cast<std::size_t>(std::ceil(rate / param.minFreq)) + 2 - minLag),
      bandTop(std::min(2.5 * param.maxFreq, rate / 2)), waveLen(waveLength) {
    if (waveLength > 0) {
        // Divided last: whole quotients are exact.
        const double last = (waveLength - 1) * frameRate / param.fs;
        frameNum = static_cast<std::size_t>(last) + 1;
    }
}
