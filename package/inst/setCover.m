% setCover  Few sets that together cover a universe, greedily
%
%   [CHOSEN, COVERAGE] = setCover (SETS, MAXSETNUM)
%
% Takes, step by step, the set with the most elements that are not yet covered, the first among equals.
%
% Inputs
%   SETS       one set in each row: element numbers from 1, whole, and 0 for no element.
%   MAXSETNUM  most sets to take, a positive whole number; default all.
%
% Outputs
%   CHOSEN     1 x n: rows of the sets taken, counted from 1, in order.
%   COVERAGE   1 x n: fraction of the universe (1 to the largest element) covered after each.
%
% Example
%   [chosen, coverage] = setCover ([1 2 0; 3 4 5; 5 0 0])
%
% See also: unique, union

function varargout = setCover (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("setCover", varargin{:});
end

%!test
%! [chosen, coverage] = setCover ([1 2 0; 3 4 5; 5 0 0]);
%! assert (chosen, [2, 1]);
%! assert (coverage, [0.6, 1]);
