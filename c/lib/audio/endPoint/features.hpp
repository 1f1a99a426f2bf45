// Two features of frames that are function templates: volume and ASHOD. Zero crossings and what else belongs
// to the class stand in endPoint.hpp.
#pragma once

/// The volume of each whole frame, as one of three measures over the frame's samples x:
///   1  sum of |x - median|, with vecMedian's median (for an even frameSize truncated toward zero);
///   2  sum of (x - mean)^2, the mean truncated toward zero;
///   3  natural logarithm of the value of 2, which first passes through single precision, truncated toward
///      zero; -2147483648 for a frame whose value is 0. No decibels.
/// Sums are formed wider than int and stop at 2147483647: a loud or long frame is never negative. Takes no
/// memory, however long the recording.
///
/// @tparam T         type of the volumes: int.
/// @param wave       waveLen samples, in any scale; made for 16-bit samples.
/// @param frameSize  samples per frame; a frameSize or a step below 1 frames nothing.
/// @param overlap    samples shared by consecutive frames; negative leaves gaps between frames.
/// @param volume     receives getFrameNum2(waveLen, frameSize, overlap) volumes; nothing is written where
///                   that is below 1.
/// @param method     1, 2 or 3. Any other, even where there is no frame: fatal path A with "Unknown volume
///                   method=%d (line %d of file %s)".
template <typename T>
void wave2volume(const int* wave, int waveLen, int frameSize, int overlap, T* volume, int method);

/// ASHOD, the absolute sum of high-order differences: it grows with a frame's high-frequency content, and so
/// finds the unvoiced sounds that are too weak to show in the volume.
///
/// Sum of |d| over the differences d of an order k, d(i) = c(0) x(i) + ... + c(k) x(i + k) with the binomial
/// coefficients of k in alternating signs, starting with -1; 0 for a frame of k samples or fewer. Sums are
/// formed wider than int and stop at 2147483647.
///
/// @tparam T     type of the samples and of the result: int.
/// @param frame  frameSize samples.
/// @param order  1 to 5. Any other prints "Unsupported order!\n" on the host console and ends the process,
///               host included, with exit status 1.
template <typename T>
T frame2ashod(const T* frame, int frameSize, int order);

extern template void wave2volume(const int*, int, int, int, int*, int);
extern template int frame2ashod(const int*, int, int);
