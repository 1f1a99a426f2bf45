% lrShiftDist  Slide the shorter of two sequences along the longer one
%
%   [DISTANCE, POSITION, SHIFT] = lrShiftDist (VEC1, VEC2, DISTANCETYPE)
%
% Inputs
%   VEC1, VEC2    rows or columns of finite numbers.
%   DISTANCETYPE  1: sum of absolute differences after taking out their median, the default;
%                 2: sum of squares after taking out the mean.
%
% Outputs
%   DISTANCE   the smallest distance; Inf where none is below 2147483647 (2^31 - 1).
%   POSITION   where it is found: the element of the longer sequence, counted from 1, below the first of the
%              shorter one; 0 for none.
%   SHIFT      what to subtract from the shorter sequence to bring it onto the longer one; NaN for none.
%
% Example
%   [distance, position, shift] = lrShiftDist ([1 2 4], [9 5 6 8 8])
%
% See also: linearScaling

function varargout = lrShiftDist (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("lrShiftDist", varargin{:});
end

%!test
%! [distance, position, shift] = lrShiftDist ([1 2 4], [9 5 6 8 8]);
%! assert ([distance, position, shift], [0, 2, -4]);
%!test  # no distance that counts
%! [distance, position, shift] = lrShiftDist ([0, 1e200], [0, 1]);
%! assert ([distance, position, shift], [Inf, 0, NaN]);
