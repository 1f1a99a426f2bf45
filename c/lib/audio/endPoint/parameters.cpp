#include "audio/endPoint/endPoint.hpp"

#include "utility/rounding.hpp"

#include "mex.h"

void cAudioEndPoint::epdParamSet(int fs, EPDPARAM& epdParam) {
    epdParam.frameSize = truncateToInt(fs / 62.5);
    epdParam.overlap = 0;
    epdParam.volRatio = 10;
    epdParam.vhRatio = 10;
    epdParam.diffOrder = 4;
    epdParam.volWeight = 0.5F;
    epdParam.extendNum = 1;
    epdParam.minSegment = 0.05F;
    epdParam.maxSilBetweenWord = 0.7F;
    epdParam.minLastWordDuration = 0.1F;
}

void cAudioEndPoint::epdParamPrint(const EPDPARAM& epdParam) {
    mexPrintf("epdParam.frameSize=%d\n", epdParam.frameSize);
    mexPrintf("epdParam.overlap=%d\n", epdParam.overlap);
    mexPrintf("epdParam.volRatio=%d\n", epdParam.volRatio);
    mexPrintf("epdParam.vhRatio=%d\n", epdParam.vhRatio);
    mexPrintf("epdParam.diffOrder=%d\n", epdParam.diffOrder);
    mexPrintf("epdParam.volWeight=%f\n", static_cast<double>(epdParam.volWeight));
    mexPrintf("epdParam.extendNum=%d\n", epdParam.extendNum);
    mexPrintf("epdParam.minSegment=%f\n", static_cast<double>(epdParam.minSegment));
    mexPrintf("epdParam.maxSilBetweenWord=%f\n", static_cast<double>(epdParam.maxSilBetweenWord));
    mexPrintf("epdParam.minLastWordDuration=%f\n", static_cast<double>(epdParam.minLastWordDuration));
}
