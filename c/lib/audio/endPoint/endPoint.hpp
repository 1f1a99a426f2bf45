// Where sound begins and ends: frame features, segments, the detectors, the volume check.
//
// A recording is waveLen samples: ints made for 16 bits, or doubles in a scale that the operation names. It
// is worked through in whole frames (getFrameNum2), of which the operations keep a value or two. Nothing else
// grows with the recording: what an operation takes beyond the caller's arrays for an hour at 16 kHz stands
// with it. The stages of a detector stand in its source file.
#pragma once

#include "audio/endPoint/features.hpp"
#include "audio/endPoint/parameters.hpp"
#include "audio/endPoint/segment.hpp"

/// Moves the entries of a list to its front in their order, and the empty slots, which hold -1, to its back.
///
/// @param list  n slots; none for n below 1.
void packCharIndex(double* list, int n);

class cAudioEndPoint {
public:
    // Frame features. They take no memory.

    /// The number of adjacent sample pairs inside each whole frame of which one is above 0 and the other
    /// below. A sample of exactly 0 takes part in no crossing: 3, 0, -3 has none.
    ///
    /// @param wave, waveLen, frameSize, overlap  as for wave2volume.
    /// @param zcr  receives getFrameNum2(waveLen, frameSize, overlap) counts.
    static void wave2zcr(const int* wave, int waveLen, int frameSize, int overlap, int* zcr);

    /// frame2ashod of each whole frame.
    ///
    /// @param wave, waveLen, frameSize, overlap  as for wave2volume.
    /// @param ashod  receives getFrameNum2(waveLen, frameSize, overlap) values.
    /// @param order  as for frame2ashod; not looked at where there is no frame.
    static void wave2ashod(const int* wave, int waveLen, int frameSize, int overlap, int* ashod, int order);

    /// Smooths frame values: replaces each but the first and the last by a quarter of the one before, half of
    /// itself and a quarter of the one after, all as they were before the call, and each of the three rounded
    /// to nearest with halves away from zero (intDiv): 4, 8, 4 becomes 4, 6, 4. A sum beyond the range of int
    /// is its nearest end.
    ///
    /// @param x  n values; fewer than 3 stay as they are.
    static void localAverage(int* x, int n);

    // Segments and parameters.

    static void segmentPrint(const SEGMENT* segments, int count);

    /// The defaults: frameSize = fs / 62.5 truncated (about 16 ms: 128 at 8000 Hz, 256 at 16000 Hz), overlap
    /// 0, both ratios 10, diffOrder 4, volWeight 0.5, extendNum 1, minSegment 0.05, maxSilBetweenWord 0.7,
    /// minLastWordDuration 0.1.
    ///
    /// @param fs  sample rate in Hz. Below 63 Hz, zero and negative rates included, frameSize comes out below
    ///            1, with which the detectors find nothing.
    static void epdParamSet(int fs, EPDPARAM& epdParam);

    /// Prints the fields on the host console, one line each in their order: "epdParam.frameSize=%d\n", ...
    static void epdParamPrint(const EPDPARAM& epdParam);

    // Detectors.

    /// The stretches of sound in a recording: the runs of frames whose volume (wave2volume, method 1) is
    /// above a threshold inside the recording's own volume range, without the short ones and without a short
    /// last one that lies far after the rest. An hour at 16 kHz, with the default frames: 2 MB.
    ///
    /// @param wave      waveLen samples; made for 16-bit samples. A volume that leaves the range of int
    ///                  counts as 2147483647, and so does a threshold.
    /// @param fs        sample rate in Hz; turns the durations of the parameters into frames, in single
    ///                  precision, rounded to nearest.
    /// @param epdParam  see EPDPARAM. A volRatio of 0 finds nothing; a duration that is not a number counts
    ///                  as 0 frames, and one beyond the range of int as its nearest end.
    /// @param segNum    receives the number of segments, possibly 0.
    /// @return          segNum valid segments in frame indices of epdParam's framing, in ascending order; the
    ///                  caller releases the array with free, for no segment too.
    /// A waveform without a whole frame has no segment. Nothing is printed.
    static SEGMENT* epdByVol(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam, int* segNum);

    /// The same on the curve (volume + ASHOD) / 2, truncated, with vhRatio in place of volRatio. A diffOrder
    /// that is not from 1 to 5 ends the process as frame2ashod does, if there is a frame.
    static SEGMENT* epdByVolHod(const int* wave, int waveLen, int fs, const EPDPARAM& epdParam, int* segNum);

    /// The sound segments of a recording by two thresholds (hysteresis): a frame that reaches the high one is
    /// sound, and so is every frame that is joined to one by frames which all reach the low one. In frames of
    /// 512 samples with an overlap of 192 and by their volume (wave2volume, method 1). Reached counts: on
    /// silence, where both thresholds are 0, every frame is sound. An hour at 16 kHz: 2 MB.
    ///
    /// @param wave      waveLen samples; made for 16-bit samples.
    /// @param endPoint  receives the first and the last frame of each segment, in ascending order; room for
    ///                  one more entry than there are frames suffices.
    /// @return          the number of entries, twice that of the segments; 0 for a waveform without a whole
    ///                  frame.
    /// The int before and the int after endPoint are not read.
    static int epdByVol2(const int* wave, int waveLen, int, int* endPoint, int);

    /// Marks the sound frames of given volumes by two thresholds. Either is the smallest volume plus the
    /// volume range over its ratio, truncating; a ratio that truncates to 0 (not-a-number included) gives
    /// 2147483647.
    ///
    /// Writes the low threshold to the file "volTh1.txt" and the high one to "volTh2.txt" in the current
    /// directory (vecWrite, which ends the process if a file does not open), and prints
    /// "volTh1=%d, volTh2=%d, maxVol=%d, minVol=%d\n" on the host console.
    ///
    /// @param volume    frameNum volumes. Below 1 nothing is read, written or printed.
    /// @param voiced    receives frameNum marks: 1 for a sound frame, else 0.
    /// The int after frameNum is not read.
    static void volume2voiced(const int* volume, int frameNum, int, const epdStruct* epd, int* voiced);

    /// A threshold from the mean of some volumes: (sum + d / 2) / d, truncating, where that lies in 128 to
    /// 2560, and 512 where it does not.
    ///
    /// @param volume  n volumes; none for n below 1, with a sum of 0.
    /// @param d       divisor, n for the rounded mean; 0 gives 512.
    /// The int after volume is not read.
    static int getVolumeThreshold(const int* volume, int, int n, int d);

    /// The span of the one utterance in a recording, in frames of 320 samples with an overlap of 240: from
    /// the first to the last frame whose volume (wave2volume, method 1) is above an eighth of the largest,
    /// widened over neighbours above a sixteenth of it, and then over neighbours whose zero crossings are
    /// above 0.4 of the largest count: unvoiced sounds at either end. A level is above another where it is
    /// strictly greater. An hour at 16 kHz: 6 MB.
    ///
    /// @param wave        waveLen samples; made for 16-bit samples.
    /// @param start, end  receive the samples at the centres of the first and the last frame. Where nothing
    ///                    is found, start > end: the centre of the frame after the recording's last, and 79;
    ///                    159 and 79 for a waveform without a whole frame.
    /// The int after waveLen is not read.
    static void epdByVolZcr(const int* wave, int waveLen, int, int* start, int* end);

    /// The characters of a recording: bursts of loud frames with quieter ones between them, as spoken
    /// characters are. In frames of 256 samples with an overlap of 86 and by their energy in decibels. Runs
    /// of frames within 20 dB of the loudest frame are cores; short ones go; each that is left widens over
    /// neighbours within 30 dB, and of cores that widen into the same stretch one stays. An hour at 16 kHz:
    /// 4 MB.
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

    /// The span of a sentence, from its first character to its last, of at most 100.
    ///
    /// @param wave        waveLen samples; comes back without its mean.
    /// @param start, end  receive the first and the last sample; -1 and -1 where there is no character.
    static void sentenceEndPointDetect(double* wave, int waveLen, int fs, int* start, int* end);

    static void packCharIndex(double* list, int n);

    /// The span of the voiced frames of a short utterance recorded on a handset, loud ones with few zero
    /// crossings, in frames of 256 samples with an overlap of 128. No frame that starts before about 0.2 s is
    /// marked; of those only the last one, number s - 1 with s = floor((0.2 fs - 128) / 128), counts for the
    /// thresholds. Left out, too, are a sound that is already under way at frame s, and the first one-frame
    /// and the first two-frame blip that begin within the first second (with the quiet frames around them,
    /// inside the recording). An hour at 16 kHz: 8 MB.
    ///
    /// @param wave      waveLen samples on a unit scale; comes back multiplied by 2^(nbits - 1).
    /// @param fs        sample rate in Hz. Below 640 Hz, zero and negative rates included, s is 0 and every
    ///                  frame counts.
    /// @param nbits     bits per sample, the sign included.
    /// @param endPoint  two entries. On entry, a first and a last frame to fall back on where no frame is
    ///                  marked; receives the first and the last sample: 128 * first - 384 and
    ///                  128 * last + 640, the first then not below 0, the last not above waveLen - 1.
    ///                  A fallback that is not a number gives that end of the recording.
    /// A frame with a sample that is not finite, as given or once rescaled, is never marked and sets no
    /// threshold. A waveform without a whole frame has no marked frame.
    static void endPointDetect4quokka(double* wave, int waveLen, int fs, int nbits, double* endPoint);

    // Whether a recording is fit for analysis: loud enough, quiet in between, not clipped.

    /// Fills the record: with the defaults 140, 30, 0.95 and 0.005 for no file, otherwise from the file
    /// alone.
    ///
    /// @param fileName  null or empty for none; else a key-value file with the names of the fields as keys, a
    ///                  later one overriding an earlier one. Values are read as atof does and narrowed to
    ///                  float.
    /// @param prm       a field that the file does not name stays as it is.
    /// Any other key: fatal path A with "Error in parsing %s, unknown key = %s (line %d in %s)"; the pairs
    /// before it have been stored. Fatal path A of keyValuePairRead.
    static void volCheckPrmRead(const char* fileName, VOL_CHECK_PRM* prm);

    /// Prints the fields on the standard output stream, one line each in their order:
    /// "volCheckPrm->maxVolTh=140 (line=N, file=../../../../c/lib/audio/audio)", ...
    static void volCheckPrmPrint(const VOL_CHECK_PRM* prm);

    /// Judges a recording by the volumes of its frames of 320 samples with an overlap of 160 (wave2volume,
    /// method 1) and by its saturated samples. An hour at 16 kHz: 2 MB.
    ///
    /// @param wave      waveLen 16-bit samples.
    /// @param fileName  parameter file, null or empty for none; what it does not name has its default.
    /// @return          3 where saturated samples per frame exceed satSampleCountRatioTh (with a negative
    ///                  satAmpRatio a sample may be beyond both limits and count twice); else
    ///                  2 where the quietest frame is too loud; else 1 where the loudest is too quiet, or
    ///                  where there is no whole frame; else 0: fit.
    /// Levels and fractions are compared in single precision. Fatal paths of volCheckPrmRead.
    static int waveVolumeCheck(const int* wave, int waveLen, const char* fileName);
};
