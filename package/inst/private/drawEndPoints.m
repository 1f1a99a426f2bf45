% The waveform with its segments above the detector's curve with its thresholds.
function drawEndPoints (wave, fs, segments, curve, threshold, time)
  fs = double (fs);
  curve(curve < -1e9) = NaN;  % frames of zeros have no decibels
  threshold(threshold < -1e9) = [];
  drawCurve (wave, fs, time, curve, "Detector's curve", threshold);
  subplot (2, 1, 1);
  hold on
  limits = ylim ();
  for segment = (segments' - 1) / fs
    plot (segment([1 1]), limits, "color", [0.1, 0.6, 0.2], "linewidth", 1.5);
    plot (segment([2 2]), limits, "color", [0.8, 0.2, 0.15], "linewidth", 1.5);
  end
  hold off
end
