% What the border between the host and the library costs for a minute of speech at 16 kHz: the time of each call in
% the host, that of the library alone, and the difference as a share of the latter.  Medians of rounds in which the
% two take turns.  Arguments: the program libraryTimes, the recording.

1;

function time = milliseconds (name, arguments, calls)
  times = zeros (1, calls);
  for i = 1:calls
    start = tic ();
    out = feval (name, arguments{:});  % one output: without any it would draw
    times(i) = 1000 * toc (start);
  end
  time = median (times);
end

[program, recording] = argv (){end-1:end};
[wave, fs] = audioread (recording, "native");
wave = repmat (wave, ceil (60 * fs / numel (wave)), 1)(1:60*fs);
unit = double (wave) / 32768;
framing = {"frameSize", 512, "overlap", 256};
calls = {
  "wave2pitch-acf", 5, {"pfType", "acf"};
  "wave2pitch-amdf", 9, {"pfType", "amdf"};
  "wave2f0", 5, {};
  "endPoints-volumeHod", 31, {"volumeHod"};
  "wave2volume", 31, framing;
  "absSpectrogram", 15, framing};

rounds = 5;
host = library = zeros (rows (calls), 2, rounds);
for round = 1:rounds
  [status, text] = system (program);
  assert (status, 0);
  library(:, 1:2, round) = repmat (str2double (regexp (text, '(?<= )[\d.]+', "match"))', 1, 2);
  for i = 1:rows (calls)
    name = strtok (calls{i, 1}, "-");
    host(i, 1, round) = milliseconds (name, [{unit, fs}, calls{i, 3}], calls{i, 2});
    host(i, 2, round) = milliseconds (name, [{wave, fs}, calls{i, 3}], calls{i, 2});
  end
end
library = median (library, 3);
host = median (host, 3);
border = 100 * (host - library) ./ library;
printf ("%-20s %12s %24s %24s\n", "a minute at 16 kHz", "library, ms", "doubles, ms (border)", "int16, ms (border)");
for i = 1:rows (calls)
  printf ("%-20s %12.2f %14.2f (%6.1f%%) %14.2f (%6.1f%%)\n", calls{i, 1}, library(i, 1), ...
          [host(i, :); border(i, :)]);
end
