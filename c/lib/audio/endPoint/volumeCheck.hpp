// Whether a recording is fit for analysis: loud enough, quiet in between, not clipped.
#pragma once

/// Levels are mean absolute deviations from the median, per sample of 16 bits.
struct VOL_CHECK_PRM {
    float maxVolTh;              ///< the loudest frame must reach this level
    float minVolTh;              ///< the quietest frame must not exceed this level
    float satAmpRatio;           ///< a sample beyond this share of 32768, or below minus it, is saturated
    float satSampleCountRatioTh; ///< limit of the number of saturated samples per frame, which may exceed 1
};

class cAudioVolumeCheck {
public:
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
    /// method 1) and by its saturated samples.
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
