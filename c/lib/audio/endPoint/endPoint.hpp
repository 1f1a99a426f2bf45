// Where sound begins and ends: frame features, segments, the detectors, the volume check.
#pragma once

#include "audio/endPoint/ashod.hpp"
#include "audio/endPoint/byVolume.hpp"
#include "audio/endPoint/byVolumeAndZcr.hpp"
#include "audio/endPoint/character.hpp"
#include "audio/endPoint/curves.hpp"
#include "audio/endPoint/epdParam.hpp"
#include "audio/endPoint/handset.hpp"
#include "audio/endPoint/localAverage.hpp"
#include "audio/endPoint/segment.hpp"
#include "audio/endPoint/twoThreshold.hpp"
#include "audio/endPoint/volume.hpp"
#include "audio/endPoint/volumeCheck.hpp"
#include "audio/endPoint/zeroCrossing.hpp"

class cAudioEndPoint : public cAudioZeroCrossing,   // frame features
                       public cAudioAshod,          //
                       public cAudioLocalAverage,   //
                       public cAudioSegment,        // runs of frames
                       public cAudioEpdParam,       // the detectors' parameters
                       public cAudioByVolume,       // detectors
                       public cAudioTwoThreshold,   //
                       public cAudioByVolumeAndZcr, //
                       public cAudioCharacter,      //
                       public cAudioHandset,        //
                       public cAudioVolumeCheck     // fitness of a recording
{};
