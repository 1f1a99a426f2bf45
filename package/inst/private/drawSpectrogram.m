% Magnitudes in dB, the loudest 80 of them.
function drawSpectrogram (magnitude, frequency, time)
  dB = 20 * log10 (min (max (magnitude, realmin), realmax));
  top = max ([dB(:); -300]);
  drawMatrix (time, frequency / 1000, dB, top - [80, 0]);
  xlabel ("Time (s)");
  ylabel ("Frequency (kHz)");
  handle = colorbar ();
  ylabel (handle, "Magnitude (dB)");
end
