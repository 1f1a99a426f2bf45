// End points by one threshold: on the frame volume, or on a curve of volume and ASHOD.
#pragma once

#include "audio/endPoint/epdParam.hpp"
#include "audio/endPoint/segment.hpp"

class cAudioByVolume {
public:
    /// The stretches of sound in a recording: the runs of frames whose volume (wave2volume, method 1) is
    /// above a threshold inside the recording's own volume range, without the short ones and without a short
    /// last one that lies far after the rest. The stages stand in the source file.
    ///
    /// @param wave      waveLen samples; made for 16-bit samples. A volume that leaves the range of int
    ///                  counts as 2147483647, and so does a threshold.
    /// @param fs        sample rate in Hz; turns the durations of the parameters into frames, in single
    ///                  precision, rounded to nearest.
    /// @param epdParam  see EPDPARAM. A volRatio of 0 finds nothing; a duration that is not a number counts
    ///                  as 0 frames, and one beyond the range of int as its nearest end.
    /// @param segNum    receives the number of segments, possibly 0.
    /// @return          segNum valid segments in frame indices of epdParam's framing, in ascending order; the
    ///                  caller releases the array with free, for no segment too.
    /// A waveform without a whole frame has no segment. Nothing is printed.
    static SEGMENT* epdByVol(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam, int* segNum);

    /// The same on the curve (volume + ASHOD) / 2, truncated, with vhRatio in place of volRatio. A diffOrder
    /// that is not from 1 to 5 ends the process as frame2ashod does, if there is a frame.
    static SEGMENT* epdByVolHod(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam, int* segNum);
};
