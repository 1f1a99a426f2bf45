// Records that the detectors and the volume check take their parameters from.
#pragma once

/// Parameters of the volume detectors. Durations are in seconds.
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

/// Parameters of volume2voiced: fields of 8 bytes.
struct epdStruct {
    double reserved;    ///< not read
    double volTh1Ratio; ///< divisor of the volume range that places the low threshold; truncated to int
    double volTh2Ratio; ///< the same for the high threshold
};

/// Limits of waveVolumeCheck. Levels are mean absolute deviations from the median, per sample of 16 bits.
struct VOL_CHECK_PRM {
    float maxVolTh;              ///< the loudest frame must reach this level
    float minVolTh;              ///< the quietest frame must not exceed this level
    float satAmpRatio;           ///< a sample beyond this share of 32768, or below minus it, is saturated
    float satSampleCountRatioTh; ///< limit of the number of saturated samples per frame, which may exceed 1
};
