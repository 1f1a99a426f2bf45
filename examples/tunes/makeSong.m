% Makes sung22k.flac: the first phrases of the Londonderry Air, each note a syllable "la" of the speech synthesiser
% espeak-ng (Debian has it).  Its syllables fall in pitch and its pitch has steps, so no note stands where it is
% written.  Needs the package's functions on the path.

here = fileparts (mfilename ("fullpath"));
addpath (here);
file = [tempname() ".wav"];
function [wave, fs] = sing (step, file)
  assert (system (sprintf ("espeak-ng -v en -s 100 -p %d -w %s '[[lA:::::]]'", step, file)), 0);
  [wave, fs] = audioread (file);
  sound = find (abs (wave) > 0.01);
  wave = wave(sound(1):sound(end));
end

% What the synthesiser's steps of pitch, 0 to 99, are in semitones.
steps = 0:9:99;
semitones = zeros (size (steps));
for i = 1:numel (steps)
  [wave, fs] = sing (steps(i), file);
  f0 = wave2f0 (wave, fs, "unit", "semitone");
  semitones(i) = median (f0(f0 > 0));
end

[names, notes, phrases] = readTunes ();
tune = find (strcmp (names, "Londonderry Air"));
melody = notes{tune}(1:phrases{tune}(3) - 1,:);
pitch = melody(:,1) - min (melody(:,1)) + 36;  % the synthesiser has 35 to 52
step = round (interp1 (semitones, steps, pitch, "linear", "extrap"));
sampleNum = round (0.7 * melody(:,2) * fs);
sung = arrayfun (@(step, n) postpad (sing (step, file), n), step, sampleNum, "UniformOutput", false);
delete (file);
audiowrite (fullfile (here, "sung22k.flac"), 0.15 * vertcat (sung{:}), fs);
