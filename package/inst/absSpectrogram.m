% absSpectrogram  Magnitude spectrum of each frame
%
%   [MAGNITUDE, FREQUENCY, TIME] = absSpectrogram (WAVE, FS, NAME, VALUE, ...)
%
% Without an output, draws it in dB.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              Integer samples become -1 to 1.
%   FS         sample rate in Hz, a positive whole number.
%
% Options, in any case
%   frameSize  samples per frame, at least 2; default 32 ms.
%   overlap    samples that consecutive frames share, 0 to frameSize - 1; default frameSize / 2, truncated.
%   paddedSize  size of the transform, a power of 2 from frameSize to 2^24; default the next one.
%   hamming    true, the default, multiplies each frame by the Hamming window.
%
% Outputs
%   MAGNITUDE  (paddedSize / 2 + 1) x frames: column = frame, unscaled.
%              It and the transform (4 * paddedSize) may have 2^27 elements, or 1024 for each one
%              of the inputs if that is more: beyond, the call is refused.
%   FREQUENCY  (paddedSize / 2 + 1) x 1: of the rows, 0 to FS / 2 in Hz.
%   TIME       1 x frames: centres of the frames in seconds.
%
% Example
%   fs = 8000;
%   wave = [zeros(1, 4000), note2wave([60 64 67], [0.4 0.4 0.4], fs), zeros(1, 4000)];
%   absSpectrogram (wave, fs, "frameSize", 512, "overlap", 384)
%
% See also: uvCut, wave2frames

function varargout = absSpectrogram (varargin)
  draw = @(in, out) drawSpectrogram (out{:});
  varargout = resultOrPicture ("absSpectrogram", varargin, nargout, 3, draw);
end

%!test  # a cosine of height 1 in the middle of the band
%! [magnitude, frequency, time] = absSpectrogram (cos (pi / 2 * (0:79)), 8000, "frameSize", 32, "hamming", false);
%! assert (magnitude, [zeros(8, 4); 16 * ones(1, 4); zeros(8, 4)], 1e-6);
%! assert (frequency, (0:16)' * 250);
%! assert (time, (1:4) * 0.002);
