// GNU Octave's mex.h, told that its error function does not return.
#pragma once

extern "C" [[noreturn]] void mexErrMsgTxt(const char* msg);

#include <octave/mex.h>
