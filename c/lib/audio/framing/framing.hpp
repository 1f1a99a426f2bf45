// Frames of a waveform: how many there are, where they start, how they are cut out, and how frame and sample
// indices map onto each other. Throughout, step = frameSize - overlap is the distance between the starts of
// consecutive frames. A step below 1 frames nothing: counts are 0, index mappings give 0, and nothing is
// written. Intermediate values are formed wider than int; a result beyond the range of int is its nearest
// end. Nothing is allocated.
#pragma once

class cAudioFraming {
public:
    /// Frames that start inside the waveform, the last ones running past its end: ceil(waveLen / step). A
    /// negative waveLen gives a count below 1.
    ///
    /// @param waveLen    samples in the waveform.
    /// @param frameSize  samples per frame.
    /// @param overlap    samples shared by consecutive frames; negative leaves gaps between frames.
    static int getFrameNum(int waveLen, int frameSize, int overlap);

    /// Frames that lie wholly inside the waveform: (waveLen - overlap) / step, truncating toward zero, so
    /// that a waveform too short for its overlap gives a negative count. The parameters are those of
    /// getFrameNum.
    static int getFrameNum2(int waveLen, int frameSize, int overlap);

    /// The first sample of each whole frame.
    ///
    /// @param frameStart  receives getFrameNum2(waveLen, frameSize, overlap) sample indices.
    static void buffer2(int waveLen, int frameSize, int overlap, int* frameStart);

    /// Cuts the waveform into frames that each end with step samples that no earlier frame holds, preceded by
    /// the last overlap samples of the frame before (zeros for the first): sample p of frame i is wave[i *
    /// step - overlap + p] where that lies inside the waveform, and 0 elsewhere.
    ///
    /// @param wave  waveLen samples.
    /// @param out   receives getFrameNum(waveLen, frameSize, overlap) x frameSize samples, frame after frame.
    /// A negative overlap, which leaves gaps, follows the same rule; a frameSize below 1 writes nothing.
    static void bufferXXX(const int* wave, int waveLen, int frameSize, int overlap, int* out);

    /// The sample at the centre of a frame: frameIndex * step + frameSize / 2 - 1, for an even frameSize the
    /// sample just before the middle.
    static int frame2sampleIndex(int frameIndex, int frameSize, int overlap);

    /// The frame whose centre lies nearest to a sample, at least 0: the inverse of frame2sampleIndex for an
    /// even frameSize. The distance from the first centre is formed in double and narrowed, the quotient
    /// taken in single precision, and rounded as myRound2 does.
    static int sample2frameIndex(int sampleIndex, int frameSize, int overlap);

    /// intDiv and myRound of the utility library.
    static int intDiv(int a, int b);
    static int myRound2(float x);
};
