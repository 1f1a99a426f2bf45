#include "audio/pitchTracking/soundMask.hpp"

#include "utility/rounding.hpp"

#include <algorithm>
#include <cstdint>

namespace wavepitch::pitchTracking {

int pitchFrameOf(int detectorFrame, const EPDPARAM& epdParam, const PTPARAM& ptParam) {
    const std::int64_t detectorStep = std::int64_t{epdParam.frameSize} - epdParam.overlap;
    const std::int64_t step = std::int64_t{ptParam.frameSize} - ptParam.overlap;
    const std::int64_t sample = detectorFrame * detectorStep + epdParam.frameSize / 2;
    const auto offset = static_cast<float>(static_cast<double>(sample) - ptParam.frameSize * 0.5);
    return myRound(offset / static_cast<float>(step));
}

std::vector<bool> soundMask(const SEGMENT* segments, int segNum, const EPDPARAM& epdParam,
                            const PTPARAM& ptParam, int frameNum) {
    std::vector<bool> mask(static_cast<std::size_t>(std::max(frameNum, 0)));
    for (const SEGMENT* segment = segments; segment != segments + segNum; ++segment) {
        const int first = std::max(pitchFrameOf(segment->begin, epdParam, ptParam), 0);
        const int last = std::min(std::max(pitchFrameOf(segment->end, epdParam, ptParam), 0), frameNum - 1);
        if (first <= last) std::fill(mask.begin() + first, mask.begin() + last + 1, true);
    }
    return mask;
}

void applyMask(const std::vector<bool>& mask, double* pitch) {
    for (std::size_t i = 0; i < mask.size(); ++i)
        if (!mask[i]) pitch[i] = 0.0;
}

} // namespace wavepitch::pitchTracking
