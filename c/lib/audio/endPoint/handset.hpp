// End points of a short utterance that is recorded on a handset.
#pragma once

class cAudioHandset {
public:
    /// The span of the voiced frames, loud ones with few zero crossings, in frames of 256 samples with an
    /// overlap of 128. No frame that starts before about 0.2 s is marked; of those only the last one,
    /// number s - 1 with s = floor((0.2 fs - 128) / 128), counts for the thresholds. Left out, too, are a
    /// sound that is already under way at frame s, and the first one-frame and the first two-frame blip that
    /// begin within the first second (with the quiet frames around them, inside the recording). The stages
    /// stand in the source file.
    ///
    /// @param wave      waveLen samples on a unit scale; comes back multiplied by 2^(nbits - 1).
    /// @param fs        sample rate in Hz. Below 640 Hz, zero and negative rates included, s is 0 and every
    ///                  frame counts.
    /// @param nbits     bits per sample, the sign included.
    /// @param endPoint  two entries. On entry, a first and a last frame to fall back on where no frame is
    ///                  marked; receives the first and the last sample: 128 * first - 384 and
    ///                  128 * last + 640, the first then not below 0, the last not above waveLen - 1.
    ///                  A fallback that is not a number gives that end of the recording.
    /// A frame with a sample that is not finite, as given or once rescaled, is never marked and sets no
    /// threshold. A waveform without a whole frame has no marked frame.
    static void endPointDetect4quokka(double* wave, int waveLen, int fs, int nbits, double* endPoint);
};
