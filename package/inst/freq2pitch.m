% freq2pitch  Hz to semitones
%
%   PITCH = freq2pitch (FREQUENCY)
%
% Input
%   FREQUENCY  matrix of any size: Hz.
%
% Output
%   PITCH      of the same size, in semitones: 69 + 12 * log2 (FREQUENCY / 440) in single precision; 0 for 0 Hz or less.
%
% Example
%   freq2pitch ([220 440])
%
% See also: pitch2freq, wave2f0, wave2pitch

function varargout = freq2pitch (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("freq2pitch", varargin{:});
end

%!test
%! freq2pitch ([440 880; 220 0]);
%! assert (ans, [69 81; 57 0], 1e-5);
