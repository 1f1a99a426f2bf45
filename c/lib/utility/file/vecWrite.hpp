// A vector as one line of text.
#pragma once

#include <fstream>

namespace utilityDetail {

/// An open output stream that writes numbers without grouping; does not return if the file does not open.
std::ofstream openRowFile(const char* path);

} // namespace utilityDetail

/// Writes n values on one line, each followed by one blank; the file is replaced.
///
/// @tparam T  any number: integers of every width in decimal, floating point with six significant digits.
/// @param n   below 1 writes the empty line.
/// If the file does not open (a null path included), prints "Error: Cannot open \"PATH\"!" on the standard
/// output stream and ends the process, host included, with exit status 1. Write errors are not reported.
template <typename T>
void vecWrite(const T* vec, int n, const char* path) {
    std::ofstream file = utilityDetail::openRowFile(path);
    for (int i = 0; i < n; ++i) file << +vec[i] << ' '; // the sign makes numbers of characters
    file << '\n';
}
