// Entries for recordings as a caller holds them: 16-bit samples with their rate and bit depth.
#pragma once

#include <vector>

class cAudioRecording {
public:
    /// The pitch of a recording in integer form. The recording is brought to 8 kHz and 8 bits and tracked
    /// four times (ACF), first from 30 to 84 semitones, then three times in a band of 24 semitones around the
    /// median pitch found so far; the frames outside the sound that the volume-and-ASHOD detector finds have
    /// no pitch, nor have those with a pitch below 34 or above 90.
    ///
    /// @param wave    the samples.
    /// @param out     receives an array, also for no value, that the caller releases with free: one value for
    ///                each 32 ms, without the zeros at both ends, 10 times the pitch truncated to whole
    ///                semitones.
    /// @param outLen  receives its length; 0 for a recording without a whole frame or without pitch.
    /// @param fs      sample rate, Hz. Rates other than 8000 are converted, as a line on the host console
    ///                says; with a rate below 1 the recording counts as empty.
    /// @param nbits   bits per sample: 16, which another line says are reduced to 8; samples of any other
    ///                depth are taken as they are.
    /// @return        true.
    ///
    /// A recording of more samples than int can count, here or at 8000 Hz, is fatal path A. Memory: where the
    /// rate is converted, 2 bytes for each sample at 8000 Hz, but at most 134 MB (2.3 hours; what lies behind
    /// is resampled whenever it is read); and what the tracker takes. 62 MB for an hour at 16 kHz, 5 MB at 8.
    static bool bGetPitch(const std::vector<short>& wave, int*& out, int& outLen, int fs, int nbits);

    /// Whether even the loudest frame of a recording stays below a volume threshold (wave2volume, method 1,
    /// in the frames of ptParamSet for the ACF). Samples of 16 bits at 8 kHz are reduced to 8 bits first.
    ///
    /// @param fs     sample rate, Hz.
    /// @param nbits  bits per sample: the threshold doubles with each bit beyond 8, and halves with each bit
    ///               less.
    /// @param volTh  the threshold in 1/256 of a step of an 8-bit sample, for each sample of a frame.
    /// @return       true for a silent recording; false where there is no whole frame.
    ///
    /// A recording of more samples than int can count is fatal path A. Memory: 4 bytes for each frame.
    static bool isWaveSilence(const std::vector<short>& wave, int fs, int nbits, int volTh);
};
