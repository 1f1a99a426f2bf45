% wave2pitch  Pitch of a recording, frame by frame
%
%   [PITCH, TIME, CLARITY, PFMAT, PARAM] = wave2pitch (WAVE, FS, NAME, VALUE, ...)
%
% Tracks the pitch by dynamic programming over the pitch function (ACF or AMDF) of each frame.  Without an
% output, draws the waveform and the pitch over the pitch-function matrix.
%
% Take wave2f0 to measure speech and singing in real recordings, in noise and on the telephone, too: it finds
% frequencies between whole lags, and decides on voiced or unvoiced by the whole course of the voice.  Take
% wave2pitch to work with the pitch function itself: it tracks whole lags over the AMDF or ACF of integer samples,
% hands out that matrix, and has every step of its search as an option.  That matrix is the same to the last bit on
% every processor; the results of wave2f0 are so with one C library, whichever instructions the processor has.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              They become integers of NBITS bits: samples of -1 to 1 are multiplied by 2^(NBITS - 1),
%              rounded and kept below it; integers are divided by a power of 2, truncated, or multiplied.
%   FS         sample rate in Hz, a positive whole number.
%
% Options, in any case
%   pfType     "acf" (1), the default, or "amdf" (0): the pitch function.
%   frameRate  frames per second, 0.001 to FS; the frames then last 32 ms, or frameSize.  Without it, frames
%              follow each other without overlap in 32 ms, and at 16 kHz last 40 ms, one each 10 ms.
%   nbits      8 or 16; default 16, and 8 for classes of 8 bits.
%   paramFile  a file of lines FIELD=VALUE, applied over the defaults and under FS and the other options.
%   unit       "semitone", the default (69 is 440 Hz, 12 double the frequency), or "Hz".
%   minPitch, maxPitch    range of the search in semitones, up to 200; default 30 and 84.  With one of them at
%              0 or below (down to -200) there is nothing to find.
%   frameSize, overlap    samples per frame (at least 2), and shared by consecutive frames (below frameSize;
%              default what frameRate leaves, without it 0, and 480 at 16 kHz).
%   pfLen      lags of the pitch function, 2 to frameSize; default half of the frames that follow from FS or
%              from the option frameSize.
%   useVolThreshold       no pitch outside the sound that endPoints (..., "volume") finds; default 1.
%   useClarityThreshold   no pitch in frames of low clarity; default 1.  See CLARITY for "amdf".
%   clarityRatio          what low is, as a fraction of the largest clarity, 0 to 1; default 0.6.
%   useClarityWeight      weight each frame's pitch function by its clarity; default 1 for ACF, 0 for AMDF.
%   medianFilterOrder     order of the median filter over the pitch, a whole number of at least 0, 3 or more
%              to filter; default 5.
%   cutLeadingTrailingZero  cut the frames without pitch at both ends from all results; default 0.
%   dpMethod   distance of consecutive candidates: 1 in lags, 2 in tenths of a semitone, else none.
%   dpPosDiffOrder        1: the distance counts as it is, else its square.
%   dpUseLocalOptim       1: the candidates are the local extrema, else all lags.  These three are whole numbers
%              of at least 0.
%   pfWeight, indexDiffWeight  weights of the pitch function and of the distance in the path, -1e9 to 1e9.
%   Defaults of the last five depend on pfType and FS; see ptParam.
%   ppcNum, pitchRangeMax, pitchDiffMax, maxMedianPitchDiff, maxAmdfLocalMinCount, minAmdfRange, halfOfFs, halfOfNbits
%              the other fields of PARAM, taken too, without an effect here.
%
% Outputs
%   PITCH      1 x frames: semitones or Hz; 0 where there is no pitch.
%   TIME       1 x frames: centres of the frames in seconds.
%   CLARITY    1 x frames: 0 to 1, how periodic a frame is.  With useClarityThreshold, which is the default, the
%              pitch function at the lag chosen as a share of that at lag 0, where the AMDF is 0: for "amdf"
%              CLARITY then is 0 throughout, and the threshold has no effect.
%   PFMAT      pfLen x frames: column = frame, row k = lag of k - 1 samples; normalised to 2^20, then weighted
%              by clarity where useClarityWeight says so.
%              At most 2^27 elements, or 1024 for each one of the inputs if that is more: beyond, the
%              call is refused.
%   PARAM      struct: the parameters used, minIndex and maxIndex being the lags searched.
%
% Example
%   fs = 8000;
%   [pitch, time] = wave2pitch (note2wave ([60 64 67], [0.4 0.4 0.4], fs), fs);
%   plot (time, pitch, ".")
%
% See also: wave2f0, ptParam, wave2pv, pitch2wave, endPoints

function varargout = wave2pitch (varargin)
  draw = @(in, out) drawPitch (in{1:2}, isInHz (in, false), out{:});
  varargout = resultOrPicture ("wave2pitch", varargin, nargout, 5, draw);
end

%!shared fs, wave
%! fs = 16000;
%! wave = pitch2wave ([zeros(1, 5), 57 * ones(1, 10), zeros(1, 5)], 10, fs);
%!test  # what was synthesised is found again, and can be cut out
%! [pitch, time, clarity, pfMat] = wave2pitch (wave, fs);
%! assert (abs (pitch(time > 0.6 & time < 1.4) - 57) < 0.5);
%! assert (wave2pitch (wave, fs, "unit", "hz"), pitch2freq (pitch));
%! voiced = find (pitch)(1):find (pitch)(end);
%! [cut{1:4}] = wave2pitch (wave, fs, "cutLeadingTrailingZero", true);
%! assert (cut, {pitch(voiced), time(voiced), clarity(voiced), pfMat(:,voiced)});
%!test  # the file is under what the call says, and over the rest
%! file = [tempname() ".prm"];
%! fid = fopen (file, "w");
%! fputs (fid, "fs=4000\nnbits=8\npfType=1\npfLen=99\nframeSize=300\noverlap=10\nmaxPitch=70\n");
%! fclose (fid);
%! [~, ~, ~, ~, sized] = wave2pitch (wave, fs, "pfType", "amdf", "paramFile", file, "frameSize", 400);
%! [~, ~, ~, ~, rated] = wave2pitch (wave, fs, "frameRate", 100, "paramFile", file);
%! printed = evalc ('pitch = wave2pitch (wave, fs, "paramFile", file);');
%! delete (file);
%! assert ([sized.fs, sized.nbits, sized.pfType, sized.pfLen, sized.maxPitch], [fs, 16, 0, 99, 70]);
%! assert ([sized.frameSize, sized.overlap, sized.frameRate], [400, 10, 41]);
%! assert ([rated.frameSize, rated.overlap, rated.pfType], [512, 352, 1]);
%! assert (strfind (printed, "Warning: frameSize too small! (frameSize=300"), 1);
%!test  # a rate stays with frames of any size
%! [~, ~, ~, ~, param] = wave2pitch (wave, fs, "frameRate", 100, "frameSize", 500);
%! assert ([param.frameSize, param.overlap, param.frameRate, param.pfLen], [500, 340, 100, 250]);
%! assert (param.minIndex < param.maxIndex);
%!error <wave2pitch: FS = 31 makes PFLEN = 1, which must be from 2> wave2pitch ([0 0], 31)
