% The waveform over time in seconds, in the current axes.  Integer samples keep their own scale.
function drawWave (wave, fs)
  fs = double (fs);
  wave = max (min (double (wave(:)), 1e300), -1e300);  % what axes can show
  plot ((0:numel (wave) - 1) / fs, wave, "color", [0.17, 0.37, 0.54]);
  axis ([0, max(numel (wave), 1) / fs, 1.05 * max(abs ([wave; eps])) * [-1, 1]]);
  ylabel ("Amplitude");
end
