// Console, keyboard and timing.
#pragma once

/// Takes printf-style arguments and prints nothing: a switchboard for output that is turned off.
[[gnu::format(printf, 1, 2)]] void myPrintf(const char* format, ...);

/// Reads one line from standard input: at most 255 characters, up to and including a newline, which stays in
/// the buffer. A longer line arrives in pieces, call by call.
///
/// @param buf  room for at least 256 characters.
/// @return     buf.
/// Fatal path A with "Error reading string (line %d of %s)" at the end of the input or on a read error.
char* myGets(char* buf);

/// Prints "Hit RETURN to continue ...\n" on the host console and waits for one character.
///
/// @return  the character read from standard input, or EOF.
int pauseForInput();

/// Busy-waits on processor time, not on wall-clock time.
///
/// @param seconds  duration, in ticks of one millionth of a second (counted in single precision: to 24 bits).
///                 Zero, a negative value and not-a-number return at once; a duration beyond the tick counter
///                 (2^64 - 1 millionths) waits for the counter's end.
void sleep(float seconds);
