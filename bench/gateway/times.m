% How long calls take in Octave for a minute of speech at 16 kHz: libraryTimes' lines, of an operation and the class
% of the samples, answered in its way, and its operations.  Argument: the recording.

1;

[wave, fs] = audioread (argv (){end}, "native");
waves.int16 = repmat (wave, ceil (60 * fs / numel (wave)), 1)(1:60*fs);
waves.double = double (waves.int16) / 32768;
framing = {"frameSize", 512, "overlap", 256};
options = containers.Map ();
options("wave2pitch-acf") = {"pfType", "acf"};
options("wave2pitch-amdf") = {"pfType", "amdf"};
options("wave2f0") = {};
options("endPoints-volumeHod") = {"volumeHod"};
options("wave2volume") = framing;
options("absSpectrogram") = framing;

while (true)
  try  % fgetl would wait for the line behind
    words = strsplit (input ("", "s"), " ");
  catch
    break;  % there are no more
  end
  called = strtok (words{1}, "-");
  arguments = [{waves.(words{2}), fs}, options(words{1})];
  start = tic ();
  out = feval (called, arguments{:});  % one output: without any it would draw
  printf ("%.6f\n", 1000 * toc (start));
  fflush (stdout);
end
