// Whole files as bytes.
#pragma once

#include <string>

/// Replaces the file by the bytes of a buffer. Fatal path A of openFile; write errors are not reported.
///
/// @param size  in bytes; below 1 leaves an empty file, whatever the buffer.
void fileWrite(const char* path, const char* buffer, long size);

/// Reads a whole file.
///
/// @param size  receives the number of bytes read.
/// @return      a buffer of exactly these bytes, without a terminator; the caller frees it with free. Never
///              null: an empty file, and one whose size the system does not tell, gives a buffer of size 0.
/// Fatal path A of openFile, and with "Cannot allocate %ld bytes for file %s in fileRead (line %d of %s)".
char* fileRead(const char* path, long& size);

/// Reads a whole file as text: up to the first NUL byte, or the end of the file. Fails as the bytes do.
void fileRead(const char* path, std::string& content);
