% The spectrogram with the cut as a line.
function drawUvCut (wave, fs, cut)
  fs = double (fs);
  [out{1:3}] = wavepitchLibrary ("absSpectrogram", wave, fs);
  drawSpectrogram (out{:});
  hold on
  plot ([cut, cut], [0, fs / 2000], "w--", "linewidth", 2);
  hold off
end
