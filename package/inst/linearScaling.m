% linearScaling  Match a query with the beginning of a reference, whatever its tempo
%
%   [DISTANCE, RATIO, DISTANCES, SHIFTS] = linearScaling (QUERY, REFERENCE, NAME, VALUE, ...)
%
% Stretches or compresses the query by a grid of ratios and compares each version with as much of the
% reference, point by point.
%
% Inputs
%   QUERY, REFERENCE  rows or columns of finite numbers, pitches for example.
%
% Options, in any case
%   lowerRatio, upperRatio  ends of the grid, above 0 and up to 1000; default 0.5 and 2.
%   resolution    ratios in the grid, 1 to 1000000; default 51.
%   distanceType  1: mean absolute difference, the default; 2: mean squared difference.
%   shift         true, the default: each version is first shifted (by the median or the mean of its
%                 differences from the reference), so that a transposed query matches.
%
% Outputs
%   DISTANCE   the smallest distance; Inf where no version fits into the reference.
%   RATIO      the ratio that it was found at; NaN for none.
%   DISTANCES  1 x resolution; Inf of versions that are longer than the reference.
%   SHIFTS     1 x resolution: what was subtracted from each version; NaN where nothing was.
%
% Example
%   song = [60 62 64 65 67 69 71 72 71 69];
%   [distance, ratio] = linearScaling (song(1:2:8) - 5, song, "upperRatio", 2.5)
%
% See also: lrShiftDist

function varargout = linearScaling (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("linearScaling", varargin{:});
end

%!test  # a transposed beginning is found
%! song = [1 -2 3 1 -1 4];
%! [distance, ratio, distances, shifts] = linearScaling (song(1:4) + 7, song, "resolution", 4);
%! assert ([distance, ratio, distances(2), shifts(2)], [0, 1, 0, 7], 1e-12);
%!test  # no version fits
%! [distance, ratio, ~, shifts] = linearScaling (1:10, 1);
%! assert ([distance, ratio, shifts(1)], [Inf, NaN, NaN]);
