% What the border between the host and the library costs for a minute of speech at 16 kHz: the time of each call in
% the host, that of the library alone, and the difference as a share of the latter.  Medians of calls that take
% turns, the second of two each, as the first finds other data in the caches.  Arguments: the program libraryTimes,
% the recording.

1;

function time = inLibrary (to, from, name)
  fputs (to, [name "\n"]);
  fflush (to);
  while (! ischar (line = fgetl (from)))  % nothing yet
    fclear (from);
    pause (1e-4);
  end
  time = str2double (line);
end

function time = inHost (name, arguments)
  called = strtok (name, "-");
  start = tic ();
  out = feval (called, arguments{:});  % one output: without any it would draw
  time = 1000 * toc (start);
end

function time = second (timed, varargin)
  timed (varargin{:});
  time = timed (varargin{:});
end

[program, recording] = argv (){end-1:end};
[wave, fs] = audioread (recording, "native");
wave = repmat (wave, ceil (60 * fs / numel (wave)), 1)(1:60*fs);
unit = double (wave) / 32768;
framing = {"frameSize", 512, "overlap", 256};
calls = {
  "wave2pitch-acf", {"pfType", "acf"};
  "wave2pitch-amdf", {"pfType", "amdf"};
  "wave2f0", {};
  "endPoints-volumeHod", {"volumeHod"};
  "wave2volume", framing;
  "absSpectrogram", framing};
turns = 31;
[to, from] = popen2 (program);

printf ("%-20s %12s %24s %24s\n", "a minute at 16 kHz", "library, ms", "doubles, ms (border)", "int16, ms (border)");
for i = 1:rows (calls)
  [name, options] = calls{i, :};
  times = zeros (turns, 3);
  for turn = 1:turns
    times(turn, 1) = second (@inLibrary, to, from, name);
    times(turn, 2) = second (@inHost, name, [{unit, fs}, options]);
    times(turn, 3) = second (@inHost, name, [{wave, fs}, options]);
  end
  times = median (times);
  border = 100 * (times / times(1) - 1);
  printf ("%-20s %12.2f %14.2f (%6.1f%%) %14.2f (%6.1f%%)\n", name, times(1), [times(2:3); border(2:3)]);
end
