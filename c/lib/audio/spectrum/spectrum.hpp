// Spectra of frames: the window, magnitude spectrograms and the unvoiced cut. Frame i of a waveform starts at
// sample i * step, step = frameSize - overlap; only whole frames count (getFrameNum2). A step or a frame size
// below 1 frames nothing. What the operations need beyond the caller's arrays grows with a frame, not with
// the recording: four values for each point of the transform and a window, for an hour of sound as for a
// second.
#pragma once

class cAudioSpectrum {
public:
    /// Multiplies a frame by the Hamming window 0.54 - 0.46 * cos(2 pi i / (frameSize - 1)): symmetric, 0.08
    /// at both ends. Window and product are formed in double, the product is rounded to float. A frame of a
    /// single sample has no window and becomes not-a-number.
    ///
    /// @param frame  frameSize samples of any scale, changed in place.
    static void hammingWindowing(float* frame, int frameSize);

    /// Magnitudes of the lower half of each frame's spectrum, unscaled.
    ///
    /// @param wave        waveLen samples of any scale.
    /// @param frameSize   samples per frame, at most paddedSize.
    /// @param overlap     samples shared by consecutive frames; negative leaves gaps.
    /// @param paddedSize  size of the transform. One that is not a power of two stands for the next one: the
    ///                    transform says so on the console for each frame, and out receives the first bins of
    ///                    the longer spectrum.
    /// @param useHamming  non-zero multiplies each frame by the Hamming window.
    /// @param out         receives paddedSize / 2 + 1 magnitudes per frame, frame after frame.
    /// Fatal path A with "Error: frameSize is larger than paddedSize (line %d of file %s)".
    static void absSpectrogram(const double* wave, int waveLen, int frameSize, int overlap, int paddedSize,
                               int useHamming, double* out);

    /// Magnitudes of the whole spectrum of frames that are already cut; window and transform in single
    /// precision.
    ///
    /// @param frameMat    frameNum frames of frameSize samples, frame after frame.
    /// @param frameSize   samples per frame and size of the transform, which treats a size that is not a
    ///                    power of two as absSpectrogram does.
    /// @param useHamming  non-zero multiplies each frame by the Hamming window.
    /// @param out         receives frameSize magnitudes per frame; may be frameMat.
    static void absFft4frameMat(const double* frameMat, int frameSize, int frameNum, int useHamming,
                                double* out);

    /// Where an unvoiced beginning gives way to the voiced part: the frame in the first half of a recording
    /// from which the spectrum changes most over two frames. The change is the sum of absolute differences
    /// between 512-point power spectra under the Hamming window, in single precision.
    ///
    /// @param wave       waveLen samples, made for 16 bits.
    /// @param frameSize  samples per frame, at most 512.
    /// @param overlap    samples shared by consecutive frames.
    /// @return           frame index, the first of equal ones; 0 with fewer than 5 whole frames.
    /// Fatal path A with "Error: frameSize is larger than paddedSize (line %d of file %s)".
    static int uvCut(const int* wave, int waveLen, int frameSize, int overlap);
};
