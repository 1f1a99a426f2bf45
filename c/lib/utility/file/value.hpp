// Files of a single value, and log files to which values are appended.
#pragma once

/// Replaces the file by one line with the value, as printf's "%g" has it. Fatal path A of openFile; write
/// errors are not reported.
void fileWrite(const char* path, double value);
void fileWrite(const char* path, float value);

/// Appends one line to a log file, as "%f" has it, an int as "%d". Fatal path A of openFile; write errors are
/// not reported.
void logVar(double value, const char* path);
void logVar(float value, const char* path);
void logVar(int value, const char* path);
