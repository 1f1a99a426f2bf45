% Makes hum16k.flac: the refrain of Auld Lang Syne as somebody hums it, in a key and a tempo of his own, a little
% beside each note, gliding from one to the next, with vibrato, a breath between the phrases, and noise 20 dB below.

fs = 16000;
transposition = -5.4;  % semitones
tempo = 1.2;           % times that of the table
here = fileparts (mfilename ("fullpath"));
addpath (here);
randn ("state", 16);

[names, notes, phrases] = readTunes ();
tune = find (strcmp (names, "Auld Lang Syne"));
first = phrases{tune}(5:7);
refrain = notes{tune}(first(1):first(3) - 1,:);
noteNum = rows (refrain);
pitch = refrain(:,1)' + transposition + 0.15 * randn (1, noteNum);
seconds = refrain(:,2)' / tempo .* (1 + 0.04 * randn (1, noteNum));
sampleNum = round (seconds * fs);
start = [0, cumsum(sampleNum)] / fs;
breath = start(first(2) - first(1) + 1);

% Steps become smooth under a window; in front of the first sample and behind the last the signal goes on as it is.
held = @(signal, n) signal([ones(1, n), 1:end, end * ones(1, n)]);
smoothed = @(signal, n) filter2 (hanning (2 * n + 1)' / (n + 1), held (signal, n), "valid");

time = (1:sum (sampleNum)) / fs;
drift = 0.1 * sin (2 * pi * 0.4 * time);
vibrato = 0.25 * sin (2 * pi * 5.5 * time);
contour = smoothed (repelem (pitch, sampleNum), 0.06 * fs) + drift + vibrato;
phase = cumsum (2 * pi / fs * 440 * 2 .^ ((contour - 69) / 12));
onset = min (abs (time - start'));
level = 1 - 0.6 * exp (- (onset / 0.03) .^ 2);
level(time > breath - 0.25 & time < breath | time > start(end) - 0.06 | time < 0.06) = 0;
hum = [1, 0.6, 0.3, 0.12, 0.06] * sin ((1:5)' * phase) .* smoothed (level, 0.03 * fs);
hum = [zeros(1, 0.3 * fs), hum, zeros(1, 0.3 * fs)];
hum += sqrt (mean (hum .^ 2) / 100) * randn (size (hum));
audiowrite (fullfile (here, "hum16k.flac"), 0.2 / max (abs (hum)) * hum', fs);
