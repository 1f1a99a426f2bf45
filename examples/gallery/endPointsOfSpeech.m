% Where a telephone prompt speaks, by volume and high-order differences.

[wave, fs] = audioread (fullfile (fileparts (mfilename ("fullpath")), "..", "speech8k.wav"));
endPoints (wave, fs, "volumeHod");
subplot (2, 1, 1);
title ("Segments of speech, and the curve and threshold that found them");
