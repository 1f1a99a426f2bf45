// Opening files, and what can be asked of one: existence, size, the extension of its name.
#pragma once

#include <cstdio>

/// Opens a file, or ends the call.
///
/// @param path  null counts as a file that cannot be opened, and so does a null mode.
/// @param mode  as fopen takes it: "r", "rb", "w", "wb", "a".
/// @return      the open stream, never null; the caller closes it (FileHandle does so on every way out).
/// Fatal path A with "Cannot open file %s (line %d of %s)". Every operation that reads or writes a file of
/// the caller opens it this way, except fileExist and vecWrite.
std::FILE* openFile(const char* path, const char* mode);

/// 1 if the path can be opened for reading, else 0 (for a null path too); prints nothing. A directory opens
/// for reading on some systems, Linux among them, and then counts as existing.
int fileExist(const char* path);

/// Size in bytes. A stream keeps its position; a path is opened as openFile does.
///
/// @return  0 where the system tells no size: pipes, terminals, directories.
long getFileSize(std::FILE* file);
long getFileSize(const char* path);

/// The extension of a file name: the text after its last ".", wherever that stands ("dir.old/file" gives
/// "old/file"); the empty end of the name where it has none. The pointer points into the name.
const char* getExtName(const char* name);
char* getExtName(char* name);
