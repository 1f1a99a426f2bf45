// Files as a whole: opening them, asking about them, their bytes, and directories.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

struct dirent;

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

/// Lists nothing on this platform: prints "No files in current directory!\n" on the host console.
///
/// @param list       left as it is.
/// @param directory  every backslash becomes "/", in place.
/// @param pattern    the extension wanted, "*" for every one; not used here.
void fileListRecursive(std::vector<std::string>& list, char* directory, const char* pattern);

/// The filter of a directory scan: 0 for the entries "." and ".." and for null, 1 for any other.
int taone(const dirent* entry);
