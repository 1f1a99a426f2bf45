// Text files line by line, and the forms that lines have: tables of fields, pairs of key and value. Lines are
// read in pieces of a bounded length, and a longer line counts as several. A NUL byte in the file ends its
// piece: what stands between it and the end of the piece is lost.
#pragma once

#include <string>
#include <vector>

/// Reads the lines of a text file, without their newlines (a carriage return before the newline stays).
///
/// @param lines    replaced by the lines in file order, without empty ones. The path may be one of the old.
/// @param comment  lines whose first character it is are dropped; 0 drops none.
///
/// Pieces are of at most 99,999 characters, the newline included. A piece of that length prints the warning
/// "Warning: Array is likely too small for reading string from %s!!! (line %d of file %s)\n" on the host
/// console, and the rest of its line follows as the next piece.
/// Fatal path A of openFile.
void fileRead(const char* path, std::vector<std::string>& lines, char comment);

/// Reads a tab-separated table: one list of fields for each line that is not empty. A line with k tabs has
/// k + 1 fields, empty ones included. Long lines and failures as for the list of lines.
std::vector<std::vector<std::string>> fileRead(const char* path);

/// Reads one line by its number.
///
/// @param lineNumber  from 1; pieces of at most 998 characters, the newline included, count as lines.
/// @param buffer      room for at least 999 characters; receives the piece without its last character, which
///                    is the newline except in a cut piece and at the end of a file that does not end in one.
///                    A line that the file does not have, those before the first included, gives "".
/// Fatal path A of openFile.
void getLineInFile(const char* path, int lineNumber, char* buffer);

/// Number of lines: of pieces of at most 999 characters, the newline included. A last line without a newline
/// counts; an empty file has none. A count beyond the range of int gives its end. Fatal path A of openFile.
int getFileLineCount(const char* path);

/// Reads a key-value file, the form in which parameters are kept: lines of key=value. In each line,
/// everything from the first "%" on is a comment; the first "=" divides the rest into key and value, either
/// trimmed of white space (carriage returns included) and possibly empty. A value may contain further "=" but
/// no "%". Lines without "=" are ignored.
///
/// @param keys, values  parallel lists: each pair is appended to their ends, in file order, duplicate keys
///                      included. They are not cleared.
/// Lines are those of the line list, with its limit of 99,999 characters.
/// Fatal path A of openFile.
void keyValuePairRead(const char* fileName, std::vector<std::string>& keys, std::vector<std::string>& values);

/// Replaces the file by the elements, each on a line of its own. A NUL byte ends its string. Fatal path A of
/// openFile; write errors are not reported.
void fileWrite(const char* path, const std::vector<std::string>& values);
