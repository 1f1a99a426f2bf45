% wave2zcr  Zero crossings of each frame
%
%   [ZCR, TIME] = wave2zcr (WAVE, FS, NAME, VALUE, ...)
%
% The pairs of adjacent samples of which one is above 0 and the other below.  Without an output, draws the waveform
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
%
% Outputs
%   ZCR        1 x frames.
%   TIME       1 x frames: centres of the frames in seconds.
%
% Example
%   fs = 8000;
%   wave = [zeros(1, 4000), note2wave([60 64 67], [0.4 0.4 0.4], fs), zeros(1, 4000)];
%   wave2zcr (wave, fs)
%
% See also: wave2volume, endPoints

function varargout = wave2zcr (varargin)
  draw = @(in, out) drawCurve (in{1:2}, out{[2 1]}, "Zero crossings");
  varargout = resultOrPicture ("wave2zcr", varargin, nargout, 2, draw);
end

%!assert (wave2zcr (uint8 ([129 127 129 127 129 129 129 129]), 8000, "frameSize", 4, "overlap", 0), [3, 0])
