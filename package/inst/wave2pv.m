% wave2pv  Integer pitch of a recording, tracked in a band around its median
%
%   PV = wave2pv (WAVE, FS, NBITS)
%
% Brings the recording to 8 kHz and 8 bits and tracks its pitch four times, each time in a band of 24
% semitones around the median found so far.  Says on the console what it converts.
% Without an output, draws the pitch over time.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              They become integers of NBITS bits: samples of -1 to 1 are multiplied by 2^(NBITS - 1),
%              rounded and kept below it; integers are divided by a power of 2, truncated, or multiplied.
%   FS         sample rate in Hz, a positive whole number.
%   NBITS      8 or 16; default 16, and 8 for classes of 8 bits.
%
% Output
%   PV         1 x frames of 32 ms, without those at both ends that have no pitch: 10 times the pitch truncated
%              to whole semitones, 340 to 900; 0 where there is no pitch.
%              WAVE at 8 kHz may have 2^27 samples, or 1024 for each that it has if that is
%              more.
%
% Example
%   fs = 8000;
%   pv = wave2pv (note2wave ([60.5 64.5], [0.5 0.5], fs), fs)
%
% See also: wave2pitch, isWaveSilence

function varargout = wave2pv (varargin)
  draw = @(in, out) drawPitchVector (out{1} / 10, 0.032);
  varargout = resultOrPicture ("wave2pv", varargin, nargout, 1, draw);
end

%!test
%! pv = wave2pv (note2wave ([60.5, 64.5], [0.5, 0.5], 8000), 8000);
%! assert (ismember ([600, 640], pv));
