// Class cAudio, the audio operations by room. Each operation is declared, with its contract, in the header of
// its room; the class is their sum and holds no data, so its members can be called on any instance or on
// none.
#pragma once

#include "audio/endPoint/endPoint.hpp"
#include "audio/failure.hpp"
#include "audio/framing/framing.hpp"
#include "audio/matrix.hpp"
#include "audio/pitchFunction/pitchFunction.hpp"
#include "audio/pitchTracking/candidates.hpp"
#include "audio/pitchTracking/param.hpp"
#include "audio/pitchTracking/paramFile.hpp"
#include "audio/pitchTracking/postProcess.hpp"
#include "audio/pitchTracking/recording.hpp"
#include "audio/spectrum/spectrum.hpp"
#include "audio/waveform/synthesis.hpp"
#include "audio/waveform/waveform.hpp"

class cAudio : public cAudioFailure,          // the fatal path
               public cAudioFraming,          // frame counts, starts, buffers, index mapping, rounding
               public cAudioMatrix,           // arrays of row pointers
               public cAudioPitchFunction,    // flipping frames; the pitch functions themselves are free
               public cAudioSpectrum,         // window, spectrograms, unvoiced cut
               public cAudioSynthesis,        // sound of pitch and notes
               public cAudioWaveform,         // filter, echo, resampling
               public cAudioEndPoint,         // frame features, segments, end-point detectors, volume check
               public cAudioPitchParam,       // pitch-tracking parameters
               public cAudioPitchParamFile,   // their files
               public cAudioPitchCandidates,  // dump of pitch-point candidates
               public cAudioPitchPostProcess, // limits, trim, interpolation, integer form of a pitch vector
               public cAudioRecording         // pitch and silence of 16-bit recordings
{};
