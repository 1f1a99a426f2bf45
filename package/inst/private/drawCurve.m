% The waveform above a curve of frames; thresholds are drawn as lines.
function drawCurve (wave, fs, time, curve, label, threshold = [])
  fs = double (fs);
  duration = numel (wave) / fs;
  subplot (2, 1, 1);
  drawWave (wave, fs);
  subplot (2, 1, 2);
  plot (time, min (curve, 1e300), "color", [0.17, 0.37, 0.54], "linewidth", 1.2);
  hold on
  for level = threshold(threshold < 1e300)
    plot ([0, duration], [level, level], "--", "color", [0.8, 0.2, 0.15], "linewidth", 1.5);
  end
  hold off
  xlim ([0, duration]);
  xlabel ("Time (s)");
  ylabel (label);
end
