% pitch2wave  Sound of a pitch vector
%
%   WAVE = pitch2wave (PITCH, PITCHRATE, FS, DURATION)
%
% Sines of amplitude 0.8, period by period.  Without an output, draws the waveform.
%
% Inputs
%   PITCH      row or column: semitones (69 is 440 Hz) of each frame; 0 is a rest.
%   PITCHRATE  frames per second, a positive number.
%   FS         sample rate in Hz, a positive whole number.
%   DURATION   seconds, at least 0; default numel (PITCH) / PITCHRATE.
%
% Output
%   WAVE       round (DURATION * FS) samples from -0.8 to 0.8, a row or a column as PITCH.  The first period
%              that would pass the end and all behind it is silent.
%              At most 2^27 elements, or 1024 for each one of the inputs if that is more: beyond, the
%              call is refused.
%
% Example
%   wave = pitch2wave ([60 62 64 65 67], 4, 8000);
%
% See also: wave2pitch, note2wave, pitch2freq

function varargout = pitch2wave (varargin)
  draw = @(in, out) drawSound (out{1}, in{3});
  varargout = resultOrPicture ("pitch2wave", varargin, nargout, 1, draw);
end

%!test
%! wave = pitch2wave ([69; 0], 2, 8800, 0.75);
%! assert (wave, [0.8 * sin(2 * pi * (0:4399)' / 20); zeros(2200, 1)], 1e-9);
