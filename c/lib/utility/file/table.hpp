// Tables of numbers, as text or as raw binary values: no header, no count; the caller knows how many.
//
// Common to all:
//   T      double, float or int.
//   array  room for n values. Elements that the file does not give - it is too short, or its text is no
//          number - keep what they held, and nothing is reported.
//   n      below 1 reads nothing; the file is opened all the same.
// Fatal path A of openFile.
#pragma once

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
