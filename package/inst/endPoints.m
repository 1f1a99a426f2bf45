% endPoints  Where sound begins and ends
%
%   [SEGMENTS, CURVE, THRESHOLD, TIME] = endPoints (WAVE, FS, METHOD, NAME, VALUE, ...)
%
% Without an output, draws the waveform with the segments and the curve with its thresholds.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              They become integers of NBITS bits: samples of -1 to 1 are multiplied by 2^(NBITS - 1),
%              rounded and kept below it; integers are divided by a power of 2, truncated, or multiplied.
%   FS         sample rate in Hz, a positive whole number.
%   METHOD     "volume"        runs of frames whose volume is above a threshold; the default
%              "volumeHod"     the same on the mean of volume and ASHOD, which finds unvoiced sounds too
%              "twoThreshold"  runs above a low threshold that reach a high one
%              "volumeZcr"     one utterance, by volume and then by zero crossings
%              "character"     bursts of energy, as spoken characters are
%              "sentence"      from the first of them to the last, of at most 100
%              "handset"       one utterance, by volume and zero crossings, for handsets
%
% Options, in any case
%   nbits      8 or 16; default 16, and 8 for classes of 8 bits.  Not for "character" and "sentence".
%   maxNum     "character": most segments, 1 to 1000000; default 100.
%   "volume" and "volumeHod":
%   frameSize  samples per frame, at least 1; default 16 ms.
%   overlap    samples shared by consecutive frames, 0 to frameSize - 1; default 0.
%   volRatio   "volume": divisor of the volume range that places the threshold, at least 1; default 10.
%   vhRatio    "volumeHod": the same; default 10.
%   diffOrder  "volumeHod": order of the ASHOD differences, 1 to 5; default 4.
%   minSegment  a segment lasts longer than this, in seconds, at least 0; default 0.05.
%   maxSilBetweenWord    silence in seconds beyond which the last segment counts as detached; default 0.7.
%   minLastWordDuration  a detached last segment lasts longer than this, in seconds; default 0.1.
%
% Outputs
%   SEGMENTS   N x 2: the first and the last sample of each segment, counted from 1; 0 x 2 for none.  A recording
%              of zeros is one segment to "twoThreshold", "character" and "sentence", which look at nothing but
%              how levels compare.
%   CURVE      1 x frames: what the detector looks at: volume, (volume + ASHOD) / 2, or energy in dB.
%   THRESHOLD  1 x n: the threshold, or the low and the high one; empty without a frame (for "handset", one
%              after the first 0.2 s).
%   TIME       1 x frames: centres of the frames in seconds.
%
% Example
%   fs = 8000;
%   wave = [zeros(1, 4000), note2wave([60 64 67], [0.4 0.4 0.4], fs), zeros(1, 4000)];
%   segments = endPoints (wave, fs, "volume")
%
% See also: wave2volume, wave2ashod, isWaveSilence

function varargout = endPoints (varargin)
  draw = @(in, out) drawEndPoints (in{1:2}, out{:});
  varargout = resultOrPicture ("endPoints", varargin, nargout, 4, draw);
end

%!test  # each detector finds the note, during which its curve is above its thresholds
%! fs = 8000;
%! wave = [zeros(1, fs), note2wave(60, 1, fs), zeros(1, fs)];
%! wave(1:2:end) += 0.0002;
%! for method = {"volume", "volumeHod", "twoThreshold", "volumeZcr", "character", "sentence", "handset"}
%!   [segments, curve, threshold, time] = endPoints (wave, fs, method{1});
%!   assert (abs (segments - [fs, 2 * fs]) < 600, method{1});
%!   assert (curve(time > 1.1 & time < 1.9) > max (threshold), method{1});
%!   assert (curve(time < 0.9) < min (threshold), method{1});
%! end
%!assert (size (endPoints (zeros (1, 8000), 8000)), [0, 2])  # silence
