% waveResample  Another sample rate, by linear interpolation
%
%   OUT = waveResample (WAVE, OLDFS, NEWFS, NBITS)
%
% Without an output, draws the waveform.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              or int8, uint8, int16 or int32.
%   OLDFS      sample rate of WAVE in Hz, a positive whole number.
%   NEWFS      sample rate of OUT.
%   NBITS      8 or 16; default 16.  Samples of -1 to 1 are rounded to integers of NBITS bits on the way.
%
% Output
%   OUT        fix ((numel (WAVE) - 1) * NEWFS / OLDFS) + 1 samples, row or column as WAVE: double from -1
%              to 1, or of the integer class of WAVE.
%
% Example
%   out = waveResample (sin (1:100), 8000, 11025);
%
% See also: waveFilter, waveEcho

function varargout = waveResample (varargin)
  draw = @(in, out) drawSound (out{1}, in{3});
  varargout = resultOrPicture ("waveResample", varargin, nargout, 1, draw);
end

%!assert (waveResample ([0; 0.5], 1, 2), [0; 0.25; 0.5])
%!assert (waveResample (0.3, 1, 1, 8), 38 / 128)
%!error <waveResample: the result would have more> waveResample (zeros (1, 1e4), 1, 2147483647)
