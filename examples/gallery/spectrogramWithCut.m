% The spectrogram of a phrase that is read aloud, and where its unvoiced beginning gives way to the voiced part.

[wave, fs] = audioread (fullfile (fileparts (mfilename ("fullpath")), "..", "reading16k.wav"));
framing = {"frameSize", 512, "overlap", 352};
absSpectrogram (wave, fs, framing{:});
[~, cut] = uvCut (wave, fs, framing{:});
hold on
plot ([cut, cut], [0, fs / 2000], "w--", "linewidth", 2);
hold off
title ("Spectrogram, and the cut where unvoiced gives way to voiced");
