% note2pv  List of notes as a pitch vector
%
%   PV = note2pv (PITCH, DURATION, TIMESTEP)
%
% Says on the console at what time each note ends.  Without an output, draws the pitch over time.
%
% Inputs
%   PITCH      row or column: semitones of each note; 0 is a rest.
%   DURATION   as many elements: seconds, at least 0.
%   TIMESTEP   seconds from value to value, a positive number.
%
% Output
%   PV         1 x n, n = round (sum (DURATION) / TIMESTEP): semitones.
%              At most 2^27 elements, or 1024 for each one of the inputs if that is more: beyond, the
%              call is refused.
%
% Example
%   pv = note2pv ([60 64], [0.2 0.1], 0.05)
%
% See also: note2wave, pitch2wave

function varargout = note2pv (varargin)
  draw = @(in, out) drawPitchVector (out{1}, in{3});
  varargout = resultOrPicture ("note2pv", varargin, nargout, 1, draw);
end

%!test
%! console = evalc ("pv = note2pv ([60; 64], [0.2; 0.1], 0.05);");
%! assert (pv, [60, 60, 60, 60, 64, 64]);
