% waveEcho  Recursive echo
%
%   OUT = waveEcho (WAVE, FS, DELAY, GAIN)
%
% Adds GAIN times the output of DELAY seconds before, so that every echo is echoed again.
% Without an output, draws the waveform.
%
% Inputs
%   WAVE       row or column of samples of any scale, or of class int8, uint8 (around 128), int16 or int32.
%   FS         sample rate in Hz, a positive whole number.
%   DELAY      seconds from echo to echo, at least 0; rounded to samples.  Of 0 samples, or of all and more,
%              there is no echo.
%   GAIN       factor from echo to echo; beyond 1 in magnitude the echoes grow.
%
% Output
%   OUT        row or column as WAVE; double, or of the integer class of WAVE, where sums saturate.
%
% Example
%   waveEcho ([1 0 0 0 0], 10, 0.2, 0.5)
%
% See also: waveFilter, waveResample

function varargout = waveEcho (varargin)
  draw = @(in, out) drawSound (out{1}, in{2});
  varargout = resultOrPicture ("waveEcho", varargin, nargout, 1, draw);
end

%!assert (waveEcho (uint8 ([255 128 128]), 10, 0.1, -1), uint8 ([255 1 255]))
%!assert (waveEcho (int16 ([30000; 30000]), 10, 0.1, 1), int16 ([30000; 32767]))
