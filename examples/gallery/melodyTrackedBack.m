% A melody, synthesised from notes and tracked back from its sound.  Synthesis takes whole samples for a period: the
% sound lies up to a sixth of a semitone beside the note, and so does its pitch.

fs = 16000;
note = [60 60 67 67 69 69 67 65 65 64 64 62 62 60];
duration = [0.25 0.25 0.25 0.25 0.25 0.25 0.5 0.25 0.25 0.25 0.25 0.25 0.25 0.5];
wave = note2wave (note, duration, fs);
[pitch, time] = wave2f0 (wave, fs, "unit", "semitone");
pitch(pitch == 0) = NaN;
stairs ([0, cumsum(duration)], [note, note(end)], "color", [0.6, 0.6, 0.6], "linewidth", 5);
hold on
plot (time, pitch, ".", "color", [0.8, 0.2, 0.15], "markersize", 10);
hold off
axis ([0, sum(duration), 58, 71]);
xlabel ("Time (s)");
ylabel ("Pitch (semitones)");
legend ("notes", "pitch of their sound", "location", "northwest");
title ("A melody tracked back");
grid on
