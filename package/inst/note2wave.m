% note2wave  Sound of a list of notes
%
%   WAVE = note2wave (PITCH, DURATION, FS)
%
% Without an output, draws the waveform.
%
% Inputs
%   PITCH      row or column: semitones (69 is 440 Hz) of each note; 0 is a rest.
%   DURATION   as many elements: seconds, at least 0.
%   FS         sample rate in Hz, a positive whole number.
%
% Output
%   WAVE       fix (sum (DURATION) * FS) samples from -0.8 to 0.8, a row or a column as PITCH.
%              At most 2^27 elements, or 1024 for each one of the inputs if that is more: beyond, the
%              call is refused.
%
% Example
%   wave = note2wave ([60 64 67 72], [0.3 0.3 0.3 0.6], 8000);
%
% See also: note2pv, pitch2wave

function varargout = note2wave (varargin)
  draw = @(in, out) drawSound (out{1}, in{3});
  varargout = resultOrPicture ("note2wave", varargin, nargout, 1, draw);
end

%!test
%! wave = note2wave ([69; 0], [0.5; 0.25], 8800);
%! assert (wave, [0.8 * sin(2 * pi * (0:4399)' / 20); zeros(2200, 1)], 1e-9);
