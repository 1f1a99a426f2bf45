% Pitch values that stand step seconds apart; 0 is a gap.
function drawPitchVector (pitch, step)
  pitch(pitch == 0) = NaN;
  plot ((0:numel (pitch) - 1) * double (step), pitch, ".-", "color", [0.8, 0.2, 0.15]);
  xlabel ("Time (s)");
  ylabel ("Pitch (semitones)");
  grid on
end
