// Files of numbers: one value, one value on each line, one line of values, tables; and logs to which values
// are appended. As text, numbers are those of the C locale, whatever the host's is.
#pragma once

#include <fstream>
#include <vector>

/// Replaces the file by one line with the value, as printf's "%g" has it. Fatal path A of openFile; write
/// errors are not reported.
void fileWrite(const char* path, double value);
void fileWrite(const char* path, float value);

/// Appends one line to a log file, as "%f" has it, an int as "%d". Fatal path A of openFile; write errors are
/// not reported.
void logVar(double value, const char* path);
void logVar(float value, const char* path);
void logVar(int value, const char* path);

/// Replaces the file by the elements, each on a line of its own. Fatal path A of openFile; write errors are
/// not reported.
void fileWrite(const char* path, const std::vector<int>& values);

/// Reads numbers separated by white space up to the first text that is none: "12,3" gives 12.
///
/// @param values  cleared, then filled. Integers beyond the range of int give its nearest end, floating
///                values beyond theirs infinity.
/// Fatal path A of openFile.
void fileRead(const char* path, std::vector<int>& values);
void fileRead(const char* path, std::vector<float>& values);
void fileRead(const char* path, std::vector<double>& values);

// Tables of numbers, as text or as raw binary values: no header, no count; the caller knows how many. Common
// to all:
//   T      double, float or int.
//   array  room for n values. Elements that the file does not give - it is too short, or its text is no
//          number - keep what they held, and nothing is reported.
//   n      below 1 reads nothing; the file is opened all the same.
// Fatal path A of openFile.

/// Reads values stored back to back in the machine's byte order: 8-byte or 4-byte IEEE numbers, 4-byte signed
/// integers.
template <typename T>
void readBinTable(const char* path, T* array, int n);

/// Reads values separated by any white space, as fscanf does with "%lf\n", "%f\n" and "%d\n", one scan per
/// element: text that is no number is not skipped. Values beyond the range of their type give its nearest end
/// (int) or infinity.
template <typename T>
void readTxtTable(const char* path, T* array, int n);

/// Reads a table in the form that the extension names: "txt" or "TXT" text, "bin" or "BIN" binary. Any other
/// is fatal path A with "Error in reading %s: The only allowed extensions are \"txt\" and \"bin\" (line %d of
/// %s)".
template <typename T>
void readTable(const char* path, T* array, int n);

namespace wavepitch::utility {

/// An open output stream that writes numbers without grouping; does not return if the file does not open.
std::ofstream openRowFile(const char* path);

} // namespace wavepitch::utility

/// Writes n values on one line, each followed by one blank; the file is replaced.
///
/// @tparam T  any number: integers of every width in decimal, floating point with six significant digits.
/// @param n   below 1 writes the empty line.
/// If the file does not open (a null path included), prints "Error: Cannot open \"PATH\"!" on the standard
/// output stream and ends the process, host included, with exit status 1. Write errors are not reported.
template <typename T>
void vecWrite(const T* vec, int n, const char* path) {
    std::ofstream file = wavepitch::utility::openRowFile(path);
    for (int i = 0; i < n; ++i) file << +vec[i] << ' '; // the sign makes numbers of characters
    file << '\n';
}
