% wave2ashod  Absolute sum of high-order differences of each frame
%
%   [ASHOD, TIME] = wave2ashod (WAVE, FS, NAME, VALUE, ...)
%
% Grows with the high frequencies of a frame, and so shows unvoiced sounds.  Without an output, draws the waveform
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
%   order      order of the differences, 1 to 5; default 4.
%
% Outputs
%   ASHOD      1 x frames.
%   TIME       1 x frames: centres of the frames in seconds.
%
% Example
%   fs = 8000;
%   wave = [zeros(1, 4000), note2wave([60 64 67], [0.4 0.4 0.4], fs), zeros(1, 4000)];
%   wave2ashod (wave, fs)
%
% See also: wave2volume, endPoints

function varargout = wave2ashod (varargin)
  draw = @(in, out) drawCurve (in{1:2}, out{[2 1]}, "ASHOD");
  varargout = resultOrPicture ("wave2ashod", varargin, nargout, 2, draw);
end

%!test  # samples of every class become integers of 8 or 16 bits
%! conversions = {  % sample, silence, bits, integer
%!   1, 0, 16, 32767
%!   -0.5 / 32768, 0, 16, 1
%!   0.49 / 32768, 0, 16, 0
%!   single(-0.5), single(0), 8, 64
%!   int8(-5), int8(0), 16, 1280
%!   uint8(133), uint8(128), 8, 5
%!   int16(-511), int16(0), 8, 1
%!   int32(2^18), int32(0), 16, 4};
%! for conversion = conversions'
%!   [sample, silence, bits, integer] = conversion{:};
%!   difference = wave2ashod ([sample, silence], 8000, "frameSize", 2, "order", 1, "nbits", bits);
%!   assert (difference, integer);
%! end
%!assert (wave2ashod (int8 ([0, 5]), 8000, "frameSize", 2, "order", 1), 5)  # 8 bits without being told
