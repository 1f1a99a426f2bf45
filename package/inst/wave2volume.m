% wave2volume  Volume of each frame
%
%   [VOLUME, TIME] = wave2volume (WAVE, FS, NAME, VALUE, ...)
%
% How far the samples of a frame stray from their middle.  Without an output, draws the waveform
% and the curve.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              They become integers of NBITS bits: samples of -1 to 1 are multiplied by 2^(NBITS - 1),
%              rounded and kept below it; integers are divided by a power of 2, truncated, or multiplied.
%   FS         sample rate in Hz, a positive whole number.
%
% Options, in any case
%   frameSize  samples per frame, at least 2; default 32 ms.
%   overlap    samples that consecutive frames share, 0 to frameSize - 1; default frameSize / 2, truncated.
%   nbits      8 or 16; default 16, and 8 for classes of 8 bits.
%   method     1  sum of |x - median| over the frame, the default
%              2  sum of (x - mean)^2
%              3  natural logarithm of 2, truncated; -2147483648 for a frame of 2 that is 0
%
% Outputs
%   VOLUME     1 x frames.
%   TIME       1 x frames: centres of the frames in seconds.
%
% Example
%   fs = 8000;
%   wave = [zeros(1, 4000), note2wave([60 64 67], [0.4 0.4 0.4], fs), zeros(1, 4000)];
%   wave2volume (wave, fs)
%
% See also: wave2zcr, wave2ashod, endPoints

function varargout = wave2volume (varargin)
  draw = @(in, out) drawCurve (in{1:2}, out{[2 1]}, "Volume");
  varargout = resultOrPicture ("wave2volume", varargin, nargout, 2, draw);
end

%!assert (wave2volume ([1 -1 1 -1 0 0 0 0] / 2, 8000, "frameSize", 4, "overlap", 0), [4 * 16384, 0])
%!assert (size (wave2volume (0, 8000)), [1, 0])
