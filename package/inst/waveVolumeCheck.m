% waveVolumeCheck  Whether a recording is loud enough, quiet in between and not clipped
%
%   [CODE, MEANING] = waveVolumeCheck (WAVE, PARAMFILE)
%
% Inputs
%   WAVE       recording of one channel, a row or a column: class double or single with samples from -1 to 1,
%              as audioread gives them; or int8, uint8 (around 128), int16 or int32.
%              They become integers of 16 bits: samples of -1 to 1 are multiplied by 32768 and rounded.
%   PARAMFILE  name of a file of lines KEY=VALUE with the keys maxVolTh (default 140), minVolTh (30),
%              satAmpRatio (0.95) and satSampleCountRatioTh (0.005); default none.
%
% Outputs
%   CODE       0 fit, 1 too quiet, 2 too noisy (its quietest frame is too loud), 3 clipped.
%   MEANING    text: the same in words.
%
% Example
%   [code, meaning] = waveVolumeCheck (0.0001 * sin (1:8000))
%
% See also: isWaveSilence, wave2volume

function varargout = waveVolumeCheck (varargin)
  varargout = cell (1, max (nargout, 1));
  [varargout{:}] = wavepitchLibrary ("waveVolumeCheck", varargin{:});
end

%!test  # each verdict
%! waves = {[zeros(1, 4000), 0.5 * sin(1:4000)], zeros(1, 8000), 0.5 * sin(1:8000), sin(1:8000)};
%! [codes, meanings] = cellfun (@waveVolumeCheck, waves, "UniformOutput", false);
%! assert (codes, {0, 1, 2, 3});
%! assert (meanings, {"fit", "too quiet", "too noisy", "clipped"});
