// Gaps in a vector.
#pragma once

/// Each zero takes over the value before it, so that a run of zeros takes the last value in front of the run.
///
/// @param vec  n values, changed in place; nothing happens for n below 1.
///
/// Fatal path A with "Wrong vector format (line %d of %s)" for a zero at the front; nothing is changed then.
void replaceZeroWithPrevOne(double* vec, int n);
