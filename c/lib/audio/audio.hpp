// The audio library: include this header; the files behind it are one room or topic each.
//
// Samples are double or int, as each operation says; the int operations are made for 16-bit samples (-32768
// to 32767) or for 8-bit ones (-128 to 127). A frame is frameSize consecutive samples; frame i starts at
// sample i * (frameSize - overlap). Frames and samples are numbered from 0.
//
// Where memory runs out, std::bad_alloc leaves the operation, whatever it is, with all that it took released.
#pragma once

#include "audio/cAudio.hpp"
#include "audio/melody/contour.hpp"
#include "audio/pitchFunction/pitchFunction.hpp"
#include "audio/pitchTracking/clarity.hpp"
#include "audio/pitchTracking/medianFilter.hpp"
#include "audio/pitchTracking/path.hpp"
#include "audio/pitchTracking/tracker.hpp"
#include "audio/spectrum/fft.hpp"
#include "audio/voice/voice.hpp"
