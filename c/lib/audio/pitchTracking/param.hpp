// The parameters of pitch tracking: one plain record that every operation of this room takes.
//
// Pitches are in semitones on the scale on which 69 is 440 Hz and 12 semitones double the frequency:
// frequency = 440 * 2^((pitch - 69) / 12). A pitch of 0 or below stands for no pitch, 0 Hz.
#pragma once

#include "audio/pitchFunction/pitchFunction.hpp"

/// Owned by the caller, without pointers. Defaults are those of cAudio::ptParamSet; "by type" names those
/// that depend on the pitch-function type and the sample rate:
///
///   type   fs          pfWeight  indexDiffWeight  dpMethod  dpPosDiffOrder  dpUseLocalOptim
///   ACF    16000       1         6                1         2               0
///   ACF    8000        4         388              2         1               1
///   AMDF   16000       12800     700              2         2               1
///   all others         1         1                1         1               1
struct PTPARAM {
    int fs;         ///< sample rate, Hz
    int nbits;      ///< bits per sample
    PF_TYPE pfType; ///< pitch function of each frame

    int frameSize; ///< samples per frame: 640 at 16 kHz, else 32 ms rounded up to an even number
    int overlap;   ///< samples shared by consecutive frames: 480 at 16 kHz, else 0
    int pfLen;     ///< lags of the pitch function, 0 to pfLen - 1: frameSize / 2

    int ppcNum;               ///< number of pitch-point candidates, 10; kept in files, read by no operation
    float minPitch;           ///< lowest pitch searched, semitones: 30
    float maxPitch;           ///< highest pitch searched, semitones: 84
    float pitchRangeMax;      ///< width of the band that cAudio::bGetPitch searches, semitones: 24
    float pitchDiffMax;       ///< 5; kept in files, read by no operation
    float maxMedianPitchDiff; ///< 20; kept in files, read by no operation

    int dpMethod;          ///< distance of consecutive candidates: 1 in lags, 2 in tenths of a semitone,
                           ///< any other value none; by type
    int dpPosDiffOrder;    ///< 1: the absolute distance counts, any other value: its square; by type
    int dpUseLocalOptim;   ///< 1: the candidates are the local extrema, any other value: all lags; by type
    float pfWeight;        ///< weight of a candidate's pitch-function value in the path score; by type
    float indexDiffWeight; ///< weight of the distance in the path score; by type

    int useVolThreshold;        ///< non-zero: no pitch outside the sound that cAudio::epdByVol finds; 1
    int useClarityThreshold;    ///< non-zero: no pitch in frames of low clarity; 1
    float clarityRatio;         ///< what low is, as a fraction of the largest clarity: 0.6
    int medianFilterOrder;      ///< order of the median filter over the pitch, 3 or more to filter: 5
    int cutLeadingTrailingZero; ///< non-zero: zeros at both ends of the pitch vector are cut; 0

    float maxAmdfLocalMinCount; ///< fs * 20 / 8000; kept in files, read by no operation
    float minAmdfRange;         ///< 2^nbits / 256 * 5; kept in files, read by no operation
    bool halfOfFs;              ///< false; kept in files, read by no operation
    bool halfOfNbits;           ///< false; kept in files, read by no operation

    int frameRate; ///< whole frames per second: fs / (frameSize - overlap)
    int minIndex;  ///< smallest lag searched, that of maxPitch; INT_MAX where that is 0 or below; set by
                   ///< the tracker
    int maxIndex;  ///< largest lag searched, that of minPitch, at most pfLen - 1; -1 where minPitch is 0 or
                   ///< below; set by the tracker

    int useClarityWeight; ///< non-zero: each frame's pitch function is weighted by its clarity; 1 for the
                          ///< ACF, 0 for the AMDF
};

class cAudioPitchParam {
public:
    /// Fills a record: the defaults, then the parameter file over them, then the check of the frame duration.
    /// What the defaults derive from other fields (pfLen, the values by type) is not derived again after the
    /// file. minIndex and maxIndex start at 0.
    ///
    /// @param ptParam    receives the parameters.
    /// @param fs         sample rate, Hz. At rates other than 8000 and 16000 a frame is 32 ms, rounded up to
    ///                   an even number of samples. frameRate is this rate by the record's frame step; 0 for
    ///                   a step of 0. A rate below 1 gives a frame of no sample or fewer, which
    ///                   tracks nothing.
    /// @param nbits      bits per sample.
    /// @param pfType     PF_AMDF or PF_ACF. Any other type is fatal path A with "Unknown pfType=%d (line %d
    ///                   in %s)!" and a newline.
    /// @param paramFile  a file for ptParamRead; null or a missing file leaves the defaults.
    ///
    /// Warns on the host console when the frame lasts less than 32 ms.
    static void ptParamSet(PTPARAM* ptParam, int fs, int nbits, PF_TYPE pfType, const char* paramFile);

    /// The defaults without a file, then frames of 32 ms at a given rate. pfLen, frameRate and the values by
    /// type stay those of the default layout, and so does the check of the frame duration.
    ///
    /// @param frameRate  frames per second: the frame step becomes fs / frameRate, rounded.
    static void ptParamSet(PTPARAM* ptParam, float frameRate, int fs, int nbits, PF_TYPE pfType);

    /// The warning of ptParamSet for a record that has been changed since.
    static void checkFrameDuration(const PTPARAM& ptParam);
};
