% isWaveSilence  Whether a recording is silent
%
%   SILENT = isWaveSilence (WAVE, FS, NBITS, VOLTH)
%
% Compares the volume of the loudest frame with a threshold.
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              They become integers of NBITS bits: samples of -1 to 1 are multiplied by 2^(NBITS - 1),
%              rounded and kept below it; integers are divided by a power of 2, truncated, or multiplied.
%   FS         sample rate in Hz, a positive whole number.
%   NBITS      8 or 16; default 16, and 8 for classes of 8 bits.
%   VOLTH      threshold in 1/256 of a step of an 8-bit sample, per sample; a whole number of at least 0,
%              default 256.
%
% Output
%   SILENT     true where even the loudest frame is quieter; false for a recording shorter than a frame.
%
% Example
%   isWaveSilence (0.001 * randn (1, 8000), 8000)
%
% See also: waveVolumeCheck, endPoints

function silent = isWaveSilence (varargin)
  silent = logical (wavepitchLibrary ("isWaveSilence", varargin{:}));
end

%!shared square
%! square = @(step) repmat ([step, -step], 1, 4000);
%!assert (isWaveSilence (square (255 / 32768), 16000), true)
%!assert (isWaveSilence (square (int8 (1)), 8000), false)
