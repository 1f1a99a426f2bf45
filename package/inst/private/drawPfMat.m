% A pitch-function matrix over its frames and lags.
function drawPfMat (pfMat)
  drawMatrix (1:columns (pfMat), 0:rows (pfMat) - 1, pfMat);
  xlabel ("Frame");
  ylabel ("Lag (samples)");
  colorbar ();
end
