// Files that are there whole or not at all.
#pragma once

#include <functional>
#include <string>

namespace shell {

/// Has a file written under another name beside it, and gives it its own at the end; folders above it are
/// made; a link stays, and the file that it leads to is written. What is no regular file (a device, a pipe)
/// is written as it is. Failure is a std::runtime_error with the reason, and leaves what was there.
///
/// @param mark  tells those apart who write at the same time.
void writeWhole(const std::string& name, const std::string& mark,
                const std::function<void(const std::string& temporary)>& write);

/// Removes what a writer that was ended has left of a file.
void removePart(const std::string& name, const std::string& mark);

/// Writes a file's contents; a std::runtime_error with the reason where the system refuses.
void writeContents(const std::string& path, const std::string& contents);

} // namespace shell
