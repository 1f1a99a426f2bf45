// The kernels of the voice tracker as plain loops: what every version must equal.
#pragma once

#include "audio/voice/kernel/correlation.hpp"
#include "audio/voice/kernel/filter.hpp"
#include "audio/voice/kernel/harmonics.hpp"

void plainCorrelation(const wavepitch::voice::Correlation& task);

void plainFilter(const wavepitch::voice::Filtering& filtering);

void plainHarmonics(const wavepitch::voice::Harmonics& task, wavepitch::voice::HarmonicSums& sums);
