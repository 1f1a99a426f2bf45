// Pitch-tracking parameters as key-value files (utility/file/lines.hpp), and their dump on the screen.
//
// The reader, the writer and the dump each cover a set of fields of their own: the writer leaves out pfType,
// pfLen, pitchDiffMax, useClarityThreshold, clarityRatio and medianFilterOrder, and writes four keys that the
// reader refuses (maxAmdfLocalMinCount, minAmdfRange, halfOfFs, halfOfNbits). A written file is a record for
// people; to be read back it needs those four lines removed.
#pragma once

#include "audio/pitchTracking/param.hpp"

class cAudioPitchParamFile {
public:
    /// Applies a key-value file to a record, pair by pair in file order. The keys are the names of the fields
    /// from fs to cutLeadingTrailingZero. A field without a key keeps its value; values are not validated.
    ///
    /// A value is read up to where its number ends, and is 0 where it starts with none; a number beyond the
    /// range of int is its nearest end, one beyond the range of float is infinite.
    ///
    /// Any other key, the empty one included, is fatal path A with "Error in parsing %s, unknown key = %s
    /// (line %d in %s)" (file name, key), after the pairs before it have been applied; and so is a file that
    /// cannot be opened.
    static void ptParamRead(const char* fileName, PTPARAM* ptParam);

    /// Writes twenty lines of key=value, floats to six decimals (maxAmdfLocalMinCount truncated to an
    /// integer), over any file of that name. A file that cannot be opened is fatal path A.
    static void ptParamWrite(const PTPARAM* ptParam, const char* fileName);

    /// Writes the fields from fs to cutLeadingTrailingZero to the standard output stream, one line each:
    /// "ptParam->NAME=VALUE (line=N, file=PATH)".
    static void ptParamPrint(const PTPARAM* ptParam);
};
