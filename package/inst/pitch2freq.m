% pitch2freq  Semitones to Hz
%
%   FREQUENCY = pitch2freq (PITCH)
%
% Input
%   PITCH      matrix of any size: semitones (69 is 440 Hz, 12 double the frequency).
%
% Output
%   FREQUENCY  of the same size, in Hz: 440 * 2^((PITCH - 69) / 12) in single precision; 0 for a pitch of 0 or less.
%
% Example
%   pitch2freq ([60 69])
%
% See also: freq2pitch, wave2f0, wave2pitch

function varargout = pitch2freq (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("pitch2freq", varargin{:});
end

%!assert (pitch2freq (uint16 ([69 81; 57 0])), [440 880; 220 0], 1e-3)
