// GNU Octave's mex.h, told that its error function does not return.
#pragma once

#include <octave/mex.h>

// NOLINTNEXTLINE(readability-redundant-declaration): it brings the attribute
extern "C" void mexErrMsgTxt(const char* msg) __attribute__((noreturn));
