% uvCut  Where an unvoiced beginning gives way to the voiced part
%
%   [FIRST, TIME] = uvCut (WAVE, FS, NAME, VALUE, ...)
%
% The frame in the first half of a recording from which the spectrum changes most.  Without an output, draws
% the spectrogram with the cut.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              They become integers of 16 bits: samples of -1 to 1 are multiplied by 32768 and rounded.
%   FS         sample rate in Hz, a positive whole number.
%
% Options, in any case
%   frameSize  samples per frame, 2 to 512; default 32 ms, at most 512.
%   overlap    samples that consecutive frames share, 0 to frameSize - 1; default frameSize / 2, truncated.
%
% Outputs
%   FIRST      first sample of the frame, counted from 1; 1 for a recording of fewer than 5 frames.
%   TIME       the same in seconds.
%
% Example
%   fs = 16000;
%   wave = [0.1 * (rand(1, 4000) - 0.5), pitch2wave(57 * ones(1, 60), 100, fs)];
%   first = uvCut (wave, fs)
%
% See also: absSpectrogram, endPoints

function varargout = uvCut (varargin)
  draw = @(in, out) drawUvCut (in{1:2}, out{2});
  varargout = resultOrPicture ("uvCut", varargin, nargout, 2, draw);
end

%!test
%! [first, time] = uvCut (note2wave ([0, 57], [0.25, 0.6], 16000), 16000);
%! assert (first, 4000, 1024);
%! assert (time, (first - 1) / 16000);
