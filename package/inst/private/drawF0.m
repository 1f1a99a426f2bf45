% The waveform above the spectrogram with the fundamental frequency on it.
function drawF0 (wave, fs, inHz, f0, time)
  fs = double (fs);
  duration = numel (wave) / fs;
  if (! inHz)
    f0 = (f0 > 0) .* 440 .* 2 .^ ((f0 - 69) / 12);
  end
  subplot (3, 1, 1);
  drawWave (wave, fs);
  xlim ([0, duration]);
  subplot (3, 1, 2:3);
  frameSize = round (0.04 * fs);
  step = max (round (0.005 * fs), ceil (numel (wave) / 3000));  % no more columns than can be seen
  [magnitude, frequency, frameTime] = wavepitchLibrary ("absSpectrogram", wave, fs, "frameSize", frameSize, ...
                                                        "overlap", max (0, frameSize - step));
  rows = frequency <= max (1000, 3 * max (f0));
  drawSpectrogram (magnitude(rows,:), frequency(rows), frameTime);
  f0(f0 == 0) = NaN;
  hold on
  plot (time, f0 / 1000, "r.-", "markersize", 7);
  hold off
  axis ([0, duration, 0, frequency(rows)(end) / 1000]);
  colorbar ("off");  % both axes are of one width
end
