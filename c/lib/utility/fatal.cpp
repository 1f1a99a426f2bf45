#include "utility/fatal.hpp"

#include "utility/fileHandle.hpp"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

#include "mex.h"

namespace {

constexpr int messageSize = 1000;

void writeErrorLog(const char* msg) {
    char dir[messageSize];
    getTempDir(dir);
    const std::string path = std::string(dir) + "/error.log";
    const FileHandle log(std::fopen(path.c_str(), "w"));
    if (!log) return;
    mexPrintf("\nSaved error log at %s...\n", path.c_str());
    std::fprintf(log.get(), "Error: %s\n", msg);
}

} // namespace

void myExit(const char* msg) {
    writeErrorLog(msg);
    // The caller's text often lies in a frame that the exception unwinds: the thread keeps its own copy.
    thread_local std::string message;
    message = msg;
    throw message.c_str();
}

void wavepitch::utility::myExitFormatted(const char* format, ...) {
    char msg[messageSize];
    std::va_list args;
    va_start(args, format);
    std::vsnprintf(msg, sizeof msg, format, args);
    va_end(args);
    myExit(msg);
}

void showErrorMsg(const char* msg) {
    myExit(msg);
}

void fisError(const char* msg) {
    mexErrMsgTxt(msg);
}

void getTempDir(char* dir) {
    std::memcpy(dir, "/tmp", sizeof "/tmp");
}
