// Parameters of the volume end-point detectors.
#pragma once

/// Durations are in seconds.
struct EPDPARAM {
    int frameSize;             ///< samples per frame
    int overlap;               ///< samples shared by consecutive frames; step = frameSize - overlap
    int volRatio;              ///< divisor of the volume range that places the threshold of epdByVol
    int vhRatio;               ///< the same for the curve of epdByVolHod
    int diffOrder;             ///< order of the ASHOD differences, 1 to 5
    float volWeight;           ///< a weight for the volume; not read by any detector
    int extendNum;             ///< an extension count; not read by any detector
    float minSegment;          ///< a segment must last longer than this
    float maxSilBetweenWord;   ///< silence beyond which the last segment counts as detached
    float minLastWordDuration; ///< a detached last segment must last longer than this
};

class cAudioEpdParam {
public:
    /// The defaults: frameSize = fs / 62.5 truncated (about 16 ms: 128 at 8000 Hz, 256 at 16000 Hz), overlap
    /// 0, both ratios 10, diffOrder 4, volWeight 0.5, extendNum 1, minSegment 0.05, maxSilBetweenWord 0.7,
    /// minLastWordDuration 0.1.
    ///
    /// @param fs  sample rate in Hz. Below 63 Hz, zero and negative rates included, frameSize comes out below
    ///            1, with which the detectors find nothing.
    static void epdParamSet(int fs, EPDPARAM& epdParam);

    /// Prints the fields on the host console, one line each in their order: "epdParam.frameSize=%d\n", ...
    static void epdParamPrint(const EPDPARAM& epdParam);
};
