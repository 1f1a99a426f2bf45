// End points of one utterance, by volume and then by zero crossings.
#pragma once

class cAudioByVolumeAndZcr {
public:
    /// The span of the one utterance in a recording, in frames of 320 samples with an overlap of 240: from
    /// the first to the last frame whose volume (wave2volume, method 1) is above an eighth of the largest,
    /// widened over neighbours above a sixteenth of it, and then over neighbours whose zero crossings are
    /// above 0.4 of the largest count: unvoiced sounds at either end. A level is above another where it is
    /// strictly greater.
    ///
    /// @param wave        waveLen samples; made for 16-bit samples.
    /// @param start, end  receive the samples at the centres of the first and the last frame. Where nothing
    ///                    is found, start > end: the centre of the frame after the recording's last, and 79;
    ///                    159 and 79 for a waveform without a whole frame.
    /// The int after waveLen is not read.
    static void epdByVolZcr(const int* wave, int waveLen, int, int* start, int* end);
};
