% The fundamental frequency of a telephone prompt, on its spectrogram.

[wave, fs] = audioread (fullfile (fileparts (mfilename ("fullpath")), "..", "speech8k.wav"));
wave2f0 (wave, fs);
subplot (3, 1, 1);
title ("Fundamental frequency over the spectrogram");
