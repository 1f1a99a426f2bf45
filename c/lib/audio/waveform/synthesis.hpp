// Pitch and notes into sound, and notes into pitch. Pitch is in semitones on the scale on which 69 is 440 Hz
// and 12 semitones double the frequency; a pitch of exactly 0 is a rest. What is allocated is 8 bytes a
// frame or note: 3 MB for an hour at 100 frames per second.
#pragma once

class cAudioSynthesis {
public:
    /// Semitones to Hz, 440 * 2^((pitch - 69) / 12), formed in double; 0 for a pitch of 0 or less.
    static float pitch2freq(float pitch);

    /// Hz to semitones, the inverse; 0 for a frequency of 0 or less.
    static float freq2pitch(float freq);

    /// The sound of a pitch vector: sines of amplitude 0.8, written period by period, each from phase 0. A
    /// period is a whole number of samples, fs / frequency rounded, of the frame in force where it starts; it
    /// runs to its end even when the next frame has begun. The first period that would pass the end of the
    /// output ends the sound; what is not written is 0. A period that rounds to less than one sample (a pitch
    /// above the sample rate, not-a-number) is a rest, as is whatever lies before the first start. A rest
    /// ends where the next frame starts; one without length is passed over.
    ///
    /// @param pitch      pitchLen pitches in semitones; with none, the output is silent.
    /// @param pitchRate  frames per second: frame i starts at sample i * fs / pitchRate, rounded in single
    ///                   precision.
    /// @param fs         sample rate in Hz.
    /// @param wave       receives waveLen samples between -0.8 and 0.8.
    static void pitch2wave(const double* pitch, int pitchLen, double pitchRate, int fs, double* wave,
                           int waveLen);

    /// The sound of a list of notes, made as that of a pitch vector: each note starts where the durations of
    /// those before it end, floor(fs * seconds).
    ///
    /// @param pitch     noteNum pitches in semitones; with none, the output is silent.
    /// @param duration  noteNum durations in seconds. Of notes that start at one sample, one without length
    ///                  may sound for a period; then the last of them is in force.
    static void note2wave(const double* pitch, int noteNum, const double* duration, int fs, double* wave,
                          int waveLen);

    /// A list of notes as a pitch vector. Each note taken up prints "noteCumulatedTime=%f\n" on the host
    /// console, with the time at which it ends. At most one note is taken per value: one shorter than
    /// timeStep delays those after it.
    ///
    /// @param note      pairs of pitch in semitones and duration in seconds.
    /// @param noteLen   doubles in note, twice the number of notes; an odd last one is not read.
    /// @param timeStep  seconds from value to value.
    /// @param pv        receives pvLen pitches in semitones. When the notes have ended, the last pitch is
    ///                  held; without a note, the value is 0.
    static void note2pv(const double* note, int noteLen, double timeStep, double* pv, int pvLen);
};
