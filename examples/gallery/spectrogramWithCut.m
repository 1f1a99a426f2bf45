% The spectrogram of a spoken word that begins unvoiced, and where the voice sets in.

[wave, fs] = audioread (fullfile (fileparts (mfilename ("fullpath")), "..", "speech16k.wav"));
framing = {"frameSize", 512, "overlap", 448};
absSpectrogram (wave, fs, framing{:});
[~, cut] = uvCut (wave, fs, framing{:});
hold on
plot ([cut, cut], [0, fs / 2000], "w--", "linewidth", 2);
hold off
title ("Spectrogram and unvoiced cut");
