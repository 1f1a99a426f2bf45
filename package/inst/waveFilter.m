% waveFilter  Linear filter
%
%   OUT = waveFilter (B, A, WAVE)
%
% Without an output, draws the waveform.
%
% Inputs
%   B, A       vectors of numerator and denominator coefficients, as for filter; A begins with 1.
%   WAVE       row or column of samples of any scale; those of integer classes become -1 to 1.
%
% Output
%   OUT        the filtered samples, a row or a column as WAVE.
%
% Example
%   waveFilter ([1 -0.95], 1, [1 2 3])
%
% See also: filter, waveEcho

function varargout = waveFilter (varargin)
  draw = @(in, out) drawSound (out{1});
  varargout = resultOrPicture ("waveFilter", varargin, nargout, 1, draw);
end

%!assert (waveFilter (1, 1, uint8 ([0; 128; 192])), [-1; 0; 0.5])
