% A waveform on its own; without a rate, over its samples.
function drawSound (wave, fs = 0)
  if (fs > 0)
    drawWave (wave, fs);
    xlabel ("Time (s)");
  else
    drawWave (wave, 1);
    xlabel ("Time (samples)");
  end
end
