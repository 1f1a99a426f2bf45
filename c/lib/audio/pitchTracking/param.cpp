#include "audio/pitchTracking/param.hpp"

#include "audio/failure.hpp"
#include "audio/pitchTracking/paramFile.hpp"
#include "utility/fatal.hpp"
#include "utility/file/file.hpp"
#include "utility/rounding.hpp"

#include <cmath>
#include <cstdint>

#include "mex.h"

namespace {

std::int64_t frameStep(const PTPARAM& ptParam) {
    return std::int64_t{ptParam.frameSize} - ptParam.overlap;
}

/// 256 samples at 8 kHz and as long at other rates, rounded up to an even number.
int frameSizeAt(int fs) {
    const std::int64_t product = std::int64_t{fs} * 256;
    const int size = truncateToInt(static_cast<double>(std::ceil(static_cast<float>(product) / 8000.0F)));
    return clampToInt(std::int64_t{size} + (size % 2 != 0 ? 1 : 0));
}

void setFrameLayout(PTPARAM& ptParam, int fs) {
    ptParam.frameSize = fs == 16000 ? 640 : frameSizeAt(fs);
    ptParam.overlap = fs == 16000 ? 480 : 0;
    ptParam.pfLen = ptParam.frameSize / 2;
}

void setPathWeights(PTPARAM& ptParam, float pfWeight, float indexDiffWeight, int dpMethod, int dpPosDiffOrder,
                    int dpUseLocalOptim) {
    ptParam.pfWeight = pfWeight;
    ptParam.indexDiffWeight = indexDiffWeight;
    ptParam.dpMethod = dpMethod;
    ptParam.dpPosDiffOrder = dpPosDiffOrder;
    ptParam.dpUseLocalOptim = dpUseLocalOptim;
}

void setByType(PTPARAM& ptParam) {
    const PF_TYPE pfType = ptParam.pfType;
    if (pfType != PF_AMDF && pfType != PF_ACF)
        myExitFormatted("Unknown pfType=%d (line %d in %s)!\n", static_cast<int>(pfType), __LINE__,
                        audioSourcePath);
    ptParam.useClarityWeight = pfType == PF_ACF ? 1 : 0;
    if (pfType == PF_ACF && ptParam.fs == 16000)
        setPathWeights(ptParam, 1.0F, 6.0F, 1, 2, 0);
    else if (pfType == PF_ACF && ptParam.fs == 8000)
        setPathWeights(ptParam, 4.0F, 388.0F, 2, 1, 1);
    else if (pfType == PF_AMDF && ptParam.fs == 16000)
        setPathWeights(ptParam, 12800.0F, 700.0F, 2, 2, 1);
    else
        setPathWeights(ptParam, 1.0F, 1.0F, 1, 1, 1);
}

void setRemaining(PTPARAM& ptParam) {
    ptParam.ppcNum = 10;
    ptParam.minPitch = 30.0F;
    ptParam.maxPitch = 84.0F;
    ptParam.pitchRangeMax = 24.0F;
    ptParam.pitchDiffMax = 5.0F;
    ptParam.maxMedianPitchDiff = 20.0F;
    ptParam.useVolThreshold = 1;
    ptParam.useClarityThreshold = 1;
    ptParam.clarityRatio = 0.6F;
    ptParam.medianFilterOrder = 5;
    ptParam.cutLeadingTrailingZero = 0;
    ptParam.maxAmdfLocalMinCount = static_cast<float>(ptParam.fs * 20.0 / 8000.0);
    ptParam.minAmdfRange = static_cast<float>(std::ldexp(1.0, ptParam.nbits) * 0.00390625 * 5.0);
    ptParam.halfOfFs = false;
    ptParam.halfOfNbits = false;
    ptParam.minIndex = 0;
    ptParam.maxIndex = 0;
}

} // namespace

void cAudioPitchParam::ptParamSet(PTPARAM* ptParam, int fs, int nbits, PF_TYPE pfType,
                                  const char* paramFile) {
    ptParam->fs = fs;
    ptParam->nbits = nbits;
    ptParam->pfType = pfType;
    setFrameLayout(*ptParam, fs);
    setRemaining(*ptParam);
    setByType(*ptParam);
    if (fileExist(paramFile)) cAudioPitchParamFile::ptParamRead(paramFile, ptParam);
    checkFrameDuration(*ptParam);
    const std::int64_t step = frameStep(*ptParam);
    const float frameRate = static_cast<float>(fs) / static_cast<float>(step);
    ptParam->frameRate = step == 0 ? 0 : truncateToInt(static_cast<double>(frameRate));
}

void cAudioPitchParam::ptParamSet(PTPARAM* ptParam, float frameRate, int fs, int nbits, PF_TYPE pfType) {
    ptParamSet(ptParam, fs, nbits, pfType, nullptr);
    const auto rate = static_cast<float>(fs);
    ptParam->frameSize = myRound(32.0F * rate / 1000.0F);
    ptParam->overlap = clampToInt(std::int64_t{ptParam->frameSize} - myRound(rate / frameRate));
}

void cAudioPitchParam::checkFrameDuration(const PTPARAM& ptParam) {
    constexpr float shortest = 32.0F;
    const auto duration = static_cast<float>(static_cast<double>(ptParam.frameSize) * 1000 / ptParam.fs);
    if (duration < shortest)
        mexPrintf(
            "Warning: frameSize too small! (frameSize=%d, frameDuration=%g ms < minFrameDuration=%g ms)\n",
            ptParam.frameSize, static_cast<double>(duration), static_cast<double>(shortest));
}
