// Zero crossings of each frame.
#pragma once

class cAudioZeroCrossing {
public:
    /// The number of adjacent sample pairs inside each whole frame of which one is above 0 and the other
    /// below. A sample of exactly 0 takes part in no crossing: 3, 0, -3 has none.
    ///
    /// @param wave, waveLen, frameSize, overlap  as for wave2volume.
    /// @param zcr  receives getFrameNum2(waveLen, frameSize, overlap) counts.
    static void wave2zcr(const int* wave, int waveLen, int frameSize, int overlap, int* zcr);
};
