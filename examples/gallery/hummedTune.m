% A hummed phrase, and the melodies that come closest to it: its pitch over the best and the second, the distances.

tunes = fullfile (fileparts (mfilename ("fullpath")), "..", "tunes");
[wave, fs] = audioread (fullfile (tunes, "hum16k.flac"));
hum = wave2f0 (wave, fs, "unit", "semitone");
[rank, distance, details] = findTune (hum, fullfile (tunes, "tunes.tsv"));

sounding = find (hum);
hum = hum(sounding(1):sounding(end));
hum(hum == 0) = NaN;
for i = 1:2
  axes ("position", [0.07, 1.06 - 0.49 * i, 0.53, 0.36]);
  tune = details.contour{i};
  time = @(frameNum, step) details.position(i) + (0:frameNum - 1) * step / 100;
  stairs (time (numel (tune), 1), tune, "color", [0.6, 0.7, 0.85], "linewidth", 7);
  hold on
  plot (time (numel (hum), details.ratio(i)), hum - details.transposition(i), ...
        "color", [0.8, 0.2, 0.15], "linewidth", 2);
  hold off
  xlim (time (numel (tune), 1)([1, end]));
  ylim ([min(tune) - 2, max(tune) + 2]);
  ylabel ("Pitch (semitones)");
  title (sprintf ("%d. %s (%+.1f semitones, %.2f times as fast)", i, details.name{i}, ...
                  details.transposition(i), details.ratio(i)));
  if (i == 1)
    legend ({"tune", "hum, in key and tempo of the tune"}, "location", "southeast");
  end
  grid on
end
xlabel ("Time in the tune (s)");

axes ("position", [0.67, 0.08, 0.3, 0.85]);
barh (distance, 0.8, "facecolor", [0.8, 0.86, 0.93], "edgecolor", "none");
set (gca (), "ydir", "reverse", "ytick", []);
text (0.02 * max (distance) * ones (size (distance)), 1:numel (distance), details.name);
ylim ([0.4, numel(distance) + 0.6]);
xlabel ("Distance (semitones)");
title ("The ten closest tunes");
