% The pitch of a telephone prompt over its pitch-function matrix, a hundred frames a second.

[wave, fs] = audioread (fullfile (fileparts (mfilename ("fullpath")), "..", "speech8k.wav"));
wave2pitch (wave, fs, "frameRate", 100, "maxPitch", 70);
subplot (3, 1, 1);
title ("Pitch over the autocorrelation of each frame");
