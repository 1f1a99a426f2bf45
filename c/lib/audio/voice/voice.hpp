// The pitch of a voice: a tracker for recordings of one speaker or singer, with or without noise.
//
// It differs from the tracker of pitchTracking/: it answers in Hz between whole lags, knows unvoiced frames,
// and has no settings that depend on the sample rate or on the level of the recording.
#pragma once

/// Owned by the caller, without pointers. The defaults are those to work with; what may be given instead
/// stands with each field. All levels are relative to the recording.
struct VOICEPARAM {
    int fs = 16000; ///< sample rate, Hz: 4000 to 192000; below 8000, voices above 400 Hz are found less
                    ///< surely

    double minFreq = 60;  ///< lowest frequency searched, Hz: 20 or more
    double maxFreq = 800; ///< highest frequency searched, Hz: above minFreq, and at most a quarter of lagRate
                          ///< (voiceSizes), which is 2000 or more from fs = 8000 on, else fs / 4

    double frameRate = 100; ///< frames per second: 1 to 1000

    double voicingThreshold = 0.45;  ///< strength from which a frame counts as voiced, 0 to 1; 0.05 lower
                                     ///< where the recording has no fundamental
    double candidateThreshold = 0.2; ///< least strength of a candidate, 0 to 1
    double voicingCost = 0.3; ///< of a change between voiced and unvoiced, in units of strength, 0 or more
    double lagCost = 2;       ///< of a step between lags, for an octave, by the square of the step, 0 or more
    double silenceLevel = -26;      ///< level at which strength is halved, dB by that of the recording's loud
                                    ///< frames: -100 to 0
    double fundamentalShare = 0.01; ///< least share of the energy below 250 Hz of a recording with a
                                    ///< fundamental, 0 to 1; a telephone's band has less
};

/// The most candidates of a frame.
inline constexpr int voiceCandidateMax = 8;

/// The lags that a frame's period may be, by rising lag.
struct VOICECANDIDATES {
    int num;                           ///< of candidates: 0 to voiceCandidateMax
    float lag[voiceCandidateMax];      ///< in samples at lagRate, between the whole ones
    float strength[voiceCandidateMax]; ///< correlation at the lag, from candidateThreshold to about 1
};

/// What the results of a recording measure.
struct VOICESIZES {
    int frameNum;   ///< frames: one at each multiple of 1 / frameRate seconds up to the last sample
    int lagNum;     ///< rows of the correlation matrix
    int minLag;     ///< lag of its first row, in samples at lagRate
    double lagRate; ///< fs by the whole number fs / 8000, rounded down, at least 1: samples per second
};

/// What is wrong with the parameters.
///
/// @return  null for parameters that can be tracked with; else the text of a message with the field and its
///          rule, such as "minFreq must be 20 Hz or more".
const char* voiceParamFault(const VOICEPARAM& param);

/// The sizes of the results of wave2f0.
///
/// @param waveLen  samples of the recording; below 1, it has no frames.
/// @param param    parameters without fault.
VOICESIZES voiceSizes(int waveLen, const VOICEPARAM& param);

/// Tracks the pitch of a voice. The stages stand in voice.cpp.
///
/// @param wave         waveLen samples of any scale, left unchanged: every threshold is relative, and a
///                     recording times any factor has the same pitch.
/// @param waveLen      samples of the recording: below 1, nothing is written.
/// @param param        parameters; one with a fault is fatal path A with "wave2f0: " and the fault's text.
/// @param f0           receives the frequency of each frame in Hz at its instant, i / frameRate seconds from
///                     the first sample; 0 where it is unvoiced. It may lie a little outside the range that
///                     is searched.
/// @param strength     receives the strength of each frame's pitch, the correlation of the signal with itself
///                     one period later, 0 to 1; 0 where it is unvoiced. May be null.
/// @param correlation  receives the correlation, lagNum values for each frame: column = frame, row = lag,
///                     from minLag on; -1 to 1. May be null.
/// @param candidates   receives the candidates of each frame. May be null.
/// @return             the number of frames, that of voiceSizes.
///
/// Silence, a constant, and a recording with a sample that is not a finite number have no pitch: all results
/// are 0. The time grows with the length; beyond the samples and the results it takes about 90 bytes for each
/// frame, and at most 64 MB for the part of the recording that it keeps filtered (what lies behind, from 17
/// to 35 minutes on, is filtered three times instead). Every instruction set of the kernels gives the same
/// results.
///
/// Instances: double, int.
template <typename Sample>
int wave2f0(const Sample* wave, int waveLen, const VOICEPARAM& param, double* f0, double* strength = nullptr,
            float* correlation = nullptr, VOICECANDIDATES* candidates = nullptr);
