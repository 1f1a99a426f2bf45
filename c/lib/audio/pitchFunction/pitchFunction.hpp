// Pitch functions: how similar a frame is to itself shifted by each lag. Their minima (AMDF) or maxima (ACF)
// stand at multiples of the pitch period.
//
// With x the frame, n = frameSize and d(j, i) = |x[j] - x[j + i]| for the AMDF or x[j] * x[j + i] for the
// ACF, the value at lag i is, by method:
//   1  the sum of d(j, i) over all j that fit in the frame, 0 to n - 1 - i; 0 at lags of n and more
//   2  the same divided by n - i: not-a-number at lag n, -0 beyond
//   3  the sum over j from 0 to n - pfLen - 1, the same terms for every lag; 0 when n <= pfLen
//   4  the sum over j from 0 to pfLen - 1; in a frame shorter than 2 * pfLen - 1 the terms that would need
//      samples behind its end are left out
// Each sum starts from 0 and takes its terms in the order of j, in double, nothing fused, nothing
// re-associated: the results are fixed to the last bit on every processor.
//
// Samples are double (host waveforms; any scale, infinities and not-a-number included) or int (16-bit or
// 8-bit samples). Of ints every difference and product is formed in a type wide enough for it, whatever
// their values, and then rounded to double once. A frame of fewer than 1 sample has no terms and
// counts as one of 0 samples.
//
// Sources: M. J. Ross et al., "Average magnitude difference function pitch extractor", IEEE Transactions on
// Acoustics, Speech, and Signal Processing 22(5), 1974; L. R. Rabiner, "On the use of autocorrelation
// analysis for pitch detection", IEEE Transactions on Acoustics, Speech, and Signal Processing 25(1), 1977.
#pragma once

/// Type of a pitch function. Every int can be held; only these two are valid.
enum PF_TYPE : int { PF_AMDF = 0, PF_ACF = 1 };

/// The pitch function of each whole frame of a waveform.
///
/// @param wave       waveLen samples, left unchanged.
/// @param waveLen    samples in the waveform.
/// @param frameSize  samples per frame.
/// @param overlap    samples shared by consecutive frames, below frameSize; negative leaves gaps.
/// @param pfLen      lags, 0 to pfLen - 1; zero or less writes nothing.
/// @param pfType     PF_AMDF or PF_ACF; the ACF is taken of the frame less its mean, as frame2acf has it.
/// @param pfMethod   1 to 4; methods 3 and 4 first reverse each frame as cAudio::frameFlip does.
/// @param pfMat      receives pfLen x cAudio::getFrameNum2(waveLen, frameSize, overlap) values, column after
///                   column: column = frame, row = lag.
///
/// A waveform without a whole frame, a frameSize below 0 and an overlap of frameSize or more write nothing
/// and are no error, whatever the type and method. Otherwise an unknown type is fatal path A with "Unknown
/// pfType=%d (line %d of file %s)", and an unknown method ends the process as frame2amdf or frame2acf does.
///
/// Memory: the start indices and copies of as many frames as are summed side by side, at most 8 of doubles
/// and 16 of ints; of one frame with more than a few lags one copy, and 8 if it has 16384 samples or fewer.
///
/// Instances: <double, double>, <int, double>.
template <typename T1, typename T2>
void wave2pfMat(const T1* wave, int waveLen, int frameSize, int overlap, int pfLen, PF_TYPE pfType,
                int pfMethod, T2* pfMat);

/// The average magnitude difference function of one frame.
///
/// @param frame      frameSize samples, left unchanged.
/// @param frameSize  samples in the frame.
/// @param amdf       receives pfLen values, by lag.
/// @param pfLen      lags, 0 to pfLen - 1.
/// @param method     1 to 4. Another number ends the process with status 1, after "Unknown method for
///                   frame2amdf()!" and a newline on standard output (double) or on the host console (int).
///
/// Memory: what wave2pfMat takes for one frame; none where there are few lags.
///
/// Instances: <double, double>, <int, double>.
template <typename T1, typename T2>
void frame2amdf(const T1* frame, int frameSize, T2* amdf, int pfLen, int method);

/// The autocorrelation function of one frame.
///
/// @param frame       frameSize samples, changed when removeMean is non-zero.
/// @param removeMean  non-zero: the frame's mean is first subtracted from it, in place. The mean of doubles
///                    is their sum, over j upward, by frameSize; the mean of ints is truncated toward zero,
///                    and a difference beyond the range of int is its nearest end.
/// The other parameters, the message for an unknown method with this function's name, and the memory are
/// those of frame2amdf.
///
/// Instances: <double, double>, <int, double>.
template <typename T1, typename T2>
void frame2acf(T1* frame, int frameSize, T2* acf, int pfLen, int method, int removeMean);

class cAudioPitchFunction {
public:
    /// Reverses a frame whose second half is livelier: where the absolute deviations from the frame's mean
    /// sum to more in the second half than in the first (of an odd number of samples the middle one counts
    /// with the second). Fewer than 2 samples stay as they are.
    ///
    /// @param frame      frameSize samples, changed in place. T is double, float (all of the arithmetic in
    ///                   its own precision, sums over j upward) or int (sums formed wide, the mean rounded as
    ///                   myRound of the single-precision quotient).
    template <typename T>
    static void frameFlip(T* frame, int frameSize);
};
