// Directory listings.
#pragma once

#include <string>
#include <vector>

struct dirent;

/// Lists nothing on this platform: prints "No files in current directory!\n" on the host console.
///
/// @param list       left as it is.
/// @param directory  every backslash becomes "/", in place.
/// @param pattern    the extension wanted, "*" for every one; not used here.
void fileListRecursive(std::vector<std::string>& list, char* directory, const char* pattern);

/// The filter of a directory scan: 0 for the entries "." and ".." and for null, 1 for any other.
int taone(const dirent* entry);
