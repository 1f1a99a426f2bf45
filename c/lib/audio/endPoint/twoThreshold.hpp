// End points by two thresholds (hysteresis): a frame that reaches the high threshold is sound, and so is
// every frame that is joined to one by frames which all reach the low threshold.
#pragma once

/// Parameters of volume2voiced: fields of 8 bytes.
struct epdStruct {
    double reserved;    ///< not read
    double volTh1Ratio; ///< divisor of the volume range that places the low threshold; truncated to int
    double volTh2Ratio; ///< the same for the high threshold
};

class cAudioTwoThreshold {
public:
    /// The sound segments of a recording, in frames of 512 samples with an overlap of 192 and by their volume
    /// (wave2volume, method 1). Reached counts: on silence, where both thresholds are 0, every frame is
    /// sound.
    ///
    /// @param wave      waveLen samples; made for 16-bit samples.
    /// @param endPoint  receives the first and the last frame of each segment, in ascending order; room for
    ///                  one more entry than there are frames suffices.
    /// @return          the number of entries, twice that of the segments; 0 for a waveform without a whole
    ///                  frame.
    /// The int before and the int after endPoint are not read.
    static int epdByVol2(const int* wave, int waveLen, int, int* endPoint, int);

    /// Marks the sound frames of given volumes. Either threshold is the smallest volume plus the volume range
    /// over its ratio, truncating; a ratio that truncates to 0 (not-a-number included) gives 2147483647.
    ///
    /// Writes the low threshold to the file "volTh1.txt" and the high one to "volTh2.txt" in the current
    /// directory (vecWrite, which ends the process if a file does not open), and prints
    /// "volTh1=%d, volTh2=%d, maxVol=%d, minVol=%d\n" on the host console.
    ///
    /// @param volume    frameNum volumes. Below 1 nothing is read, written or printed.
    /// @param voiced    receives frameNum marks: 1 for a sound frame, else 0.
    /// The int after frameNum is not read.
    static void volume2voiced(const int* volume, int frameNum, int, const epdStruct* epd, int* voiced);

    /// A threshold from the mean of some volumes: (sum + d / 2) / d, truncating, where that lies in 128 to
    /// 2560, and 512 where it does not.
    ///
    /// @param volume  n volumes; none for n below 1, with a sum of 0.
    /// @param d       divisor, n for the rounded mean; 0 gives 512.
    /// The int after volume is not read.
    static int getVolumeThreshold(const int* volume, int, int n, int d);
};
