% The waveform above the pitch-function matrix with the lag of the pitch on it, above the pitch itself.
function drawPitch (wave, fs, inHz, pitch, time, clarity, pfMat, param)
  fs = double (fs);
  duration = numel (wave) / fs;
  subplot (3, 1, 1);
  drawWave (wave, fs);
  subplot (3, 1, 2);
  lag = (0:rows (pfMat) - 1) * 1000 / param.fs;
  ownLargest = max (max (abs (pfMat), [], 1), realmin);
  drawMatrix (time, lag, pfMat ./ ownLargest);  % quiet frames show as much as loud ones
  frequency = pitch;
  if (! inHz && ! isempty (pitch))
    frequency = pitch2freq (pitch);
  end
  pitch(pitch == 0) = NaN;
  hold on
  plot (time, 1000 ./ frequency, "w.", "markersize", 8);
  hold off
  xlim ([0, duration]);
  ylim (lag([1, end]));
  ylabel ("Lag (ms)");
  subplot (3, 1, 3);
  plot (time, pitch, ".-", "color", [0.8, 0.2, 0.15]);
  xlim ([0, duration]);
  xlabel ("Time (s)");
  if (inHz)
    ylabel ("Pitch (Hz)");
  else
    ylabel ("Pitch (semitones)");
  end
  grid on
end
