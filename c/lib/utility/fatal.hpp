// The ways in which an operation that cannot go on ends. There are no error codes:
//   A  myExit: the error log is rewritten and an exception of type const char* leaves the module;
//   B  a fixed message and exit(1), which ends the host as well: unknown method numbers, vecWrite;
//   C  mexErrMsgTxt: the host reports the message and ends the call.
#pragma once

namespace wavepitch::utility {

/// The source path that messages of the utility library carry.
inline constexpr char utilitySourcePath[] = "../../../../c/lib/utility/utility";

/// myExit with a message formatted as printf does, cut at 999 characters.
[[noreturn, gnu::format(printf, 1, 2)]] void myExitFormatted(const char* format, ...);

} // namespace wavepitch::utility

using wavepitch::utility::myExitFormatted;
using wavepitch::utility::utilitySourcePath;

/// Fatal path A. Rewrites the error log ("error.log" in the directory of getTempDir) with the one line
/// "Error: MESSAGE", says so on the host console if the log could be opened, and throws a const char* that
/// carries the message.
///
/// @param msg  the message: data, never a format; of any length.
///
/// The text behind the thrown pointer is a copy that belongs to the library: it outlives the unwinding and
/// stays valid until the same thread's next fatal error, and is not to be freed.
[[noreturn]] void myExit(const char* msg);

/// Fatal path A under another name.
[[noreturn]] void showErrorMsg(const char* msg);

/// Fatal path C: hands the message to the host's error function, which does not return.
[[noreturn]] void fisError(const char* msg);

/// The directory of the error log.
///
/// @param dir  receives "/tmp" and its terminator (room for 5 characters); no trailing separator.
void getTempDir(char* dir);
