// The volume of each frame: how far its samples stray from their middle.
#pragma once

/// The volume of each whole frame, as one of three measures over the frame's samples x:
///   1  sum of |x - median|, with vecMedian's median (for an even frameSize truncated toward zero);
///   2  sum of (x - mean)^2, the mean truncated toward zero;
///   3  natural logarithm of the value of 2, which first passes through single precision, truncated toward
///      zero; -2147483648 for a frame whose value is 0. No decibels.
/// Sums are formed wider than int and stop at 2147483647: a loud or long frame is never negative.
///
/// @tparam T         type of the volumes: int, or double with the same whole numbers.
/// @param wave       waveLen samples, in any scale; made for 16-bit samples.
/// @param frameSize  samples per frame; a frameSize or a step below 1 frames nothing.
/// @param overlap    samples shared by consecutive frames; negative leaves gaps between frames.
/// @param volume     receives getFrameNum2(waveLen, frameSize, overlap) volumes; nothing is written where
///                   that is below 1.
/// @param method     1, 2 or 3. Any other, even where there is no frame: fatal path A with "Unknown volume
///                   method=%d (line %d of file %s)".
template <typename T>
void wave2volume(const int* wave, int waveLen, int frameSize, int overlap, T* volume, int method);

extern template void wave2volume(const int*, int, int, int, int*, int);
extern template void wave2volume(const int*, int, int, int, double*, int);
