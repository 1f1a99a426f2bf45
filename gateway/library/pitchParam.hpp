// The record of pitch tracking as name-value pairs and as a struct of the host.
#pragma once

#include "command.hpp"

#include "audio/pitchTracking/param.hpp"

/// The names that readPitchParam takes: pfType, frameRate, nbits, paramFile and the record's own fields.
const std::vector<const char*>& pitchParamNames();

/// The record: the defaults, the parameter file over them, single fields over both. Every field is checked at
/// the end, wherever it comes from.
///
/// @param nbits  where the option nbits is not given.
PTPARAM readPitchParam(const Call& call, const Options& options, int fs, int nbits);

/// Refuses a record with a field out of its range, by the field's name; where the value is the usual one,
/// which follows from the sample rate, by the rate.
void checkPitchParam(const Call& call, const PTPARAM& param, const PTPARAM& usual);

/// A struct with every field of the record.
mxArray* structOf(const PTPARAM& param);
