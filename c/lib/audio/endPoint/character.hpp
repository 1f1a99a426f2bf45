// End points of characters: bursts of loud frames with quieter ones between them, as spoken characters are;
// and of the sentence that they make.
#pragma once

/// Moves the entries of a list to its front in their order, and the empty slots, which hold -1, to its back.
///
/// @param list  n slots; none for n below 1.
void packCharIndex(double* list, int n);

class cAudioCharacter {
public:
    /// The characters of a recording, in frames of 256 samples with an overlap of 86 and by their energy in
    /// decibels. Runs of frames within 20 dB of the loudest frame are cores; short ones go; each that is left
    /// widens over neighbours within 30 dB, and of cores that widen into the same stretch one stays.
    ///
    /// @param wave        waveLen samples in any scale; comes back without its mean.
    /// @param fs          sample rate in Hz; a core lasts at least fs / 1600 frames, truncated, after its
    ///                    first.
    /// @param start, end  maxNum slots each: receive the first and the last sample of each character, in time
    ///                    order; the slots behind them hold -1.
    /// @param maxNum      slots; of more cores only the first maxNum are kept (none for maxNum below 1), and
    ///                    "Warning: some characters are not recorded due to limited length!\n" is printed on
    ///                    the host console.
    /// @return            the number of characters. 0 for a waveform without a whole frame, and for one
    ///                    whose mean is not a finite number (a sample is not, or the sum overflows), which
    ///                    stays as it is.
    ///
    /// A start does not move down over frames with many zero crossings: that step's threshold is the largest
    /// count of the recording, which no frame exceeds, so crossings are not counted.
    static int charEndPointDetect(double* wave, int waveLen, int fs, double* start, double* end, int maxNum);

    /// The span from the first character to the last, of at most 100.
    ///
    /// @param wave        waveLen samples; comes back without its mean.
    /// @param start, end  receive the first and the last sample; -1 and -1 where there is no character.
    static void sentenceEndPointDetect(double* wave, int waveLen, int fs, int* start, int* end);

    static void packCharIndex(double* list, int n);
};
