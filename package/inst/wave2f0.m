% wave2f0  Fundamental frequency of a voice, a hundred times a second
%
%   [F0, TIME, STRENGTH, SEGMENTS, CORRELATION, LAG] = wave2f0 (WAVE, FS, NAME, VALUE, ...)
%
% Without an output, draws the waveform, and the curve over the spectrogram.
%
% Take wave2f0 to measure speech and singing in real recordings, in noise and on the telephone, too: it finds
% frequencies between whole lags, and decides on voiced or unvoiced by the whole course of the voice.  Take
% wave2pitch to work with the pitch function itself: it tracks whole lags over the AMDF or ACF of integer samples,
% hands out that matrix, and has every step of its search as an option.  That matrix is the same to the last bit on
% every processor; the results of wave2f0 are so with one C library, whichever instructions the processor has.
%
% Inputs
%   WAVE       recording of one voice in one channel, a row or a column of at least one sample: class double or
%              single, int8, uint8 (around 128), int16 or int32.  The scale has no effect, nor has an offset.
%   FS         sample rate in Hz, a whole number from 4000 to 192000.
%
% Options, in any case
%   minF0, maxF0   range of the search in Hz; default 60 and 800.  minF0 is at least 20; maxF0 is above it and
%              at most R / 4, where R = FS / max (1, floor (FS / 8000)).
%   frameRate  frames per second, 1 to 1000; default 100.
%   voicingThreshold   strength from which a frame counts as voiced, 0 to 1; default 0.45.  With a lower one,
%              more frames are voiced.
%   unit       "Hz", the default, or "semitone" (69 is 440 Hz, 12 double the frequency).
%
% Outputs
%   F0         1 x frames: the frequency, 0 where a frame is unvoiced.  Semitones are those of the frequency in
%              double precision, 69 + 12 * log2 (F0 / 440), while freq2pitch computes in single.
%   TIME       1 x frames: the frames' instants in seconds, (0:frames - 1) / frameRate.
%   STRENGTH   1 x frames: correlation of the voice with itself one period later, 0 to 1; 0 where unvoiced.
%   SEGMENTS   N x 2: the first and the last sample of each voiced segment, counted from 1, as endPoints gives
%              them; 0 x 2 for none.  A frame reaches half a step to either side of its instant.
%   CORRELATION  lags x frames, class single: correlation of each frame at all lags, -1 to 1.
%   LAG        lags x 1: seconds of the rows of CORRELATION.
%   Silence has no pitch: F0, STRENGTH and CORRELATION are 0.
%
% Example
%   fs = 16000;
%   phase = cumsum (2 * pi / fs * (220 + 15 * sin (2 * pi * 5 * (1:fs) / fs)));  % a vibrato
%   [f0, time] = wave2f0 (sin (phase) + sin (2 * phase) / 2, fs, "minF0", 100, "maxF0", 500);
%   plot (time, f0, ".")
%
% See also: wave2pitch, endPoints, freq2pitch

function varargout = wave2f0 (varargin)
  draw = @(in, out) drawF0 (in{1:2}, isInHz (in, true), out{:});
  varargout = resultOrPicture ("wave2f0", varargin, nargout, 2, draw);
end

%!shared fs, wave
%! fs = 16000;
%! wave = 0.2 * sum (cos (2 * pi * 110 * (1:5)' * (1:fs) / fs));
%! wave = [zeros(1, fs / 2), wave, zeros(1, fs / 2)];
%!test  # a tone between the lags, in Hz and in semitones, of either class
%! [f0, time, ~, segments, correlation, lag] = wave2f0 (wave, fs, "minF0", 80, "maxF0", 500);
%! assert (time, (0:199) / 100);
%! assert (f0(time > 0.55 & time < 1.45), 110 * ones (1, 89), 0.1);
%! assert (segments, [0.5, 1.5] * fs, 0.03 * fs);
%! [~, period] = max (correlation(:, 100));
%! assert (lag(period), 1 / 110, 1 / 8000);
%! assert (lag([1, end])', [1 / 500, 1 / 80], 3 / 8000);
%!assert (wave2f0 (wave, fs, "unit", "semitone")(100), 45, 0.02)
%!assert (wave2f0 (uint8 (128 + 127 * wave), fs)(100), 110, 0.5)
%!assert (size (nthargout (4, @wave2f0, zeros (1, fs), fs)), [0, 2])  # nothing is voiced
