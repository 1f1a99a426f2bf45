% The module in GNU Octave, which is also the measure of mexhost.  Arguments: mexhost, the module built for it,
% the probe, the directory of recordings.

1;

function message = assertError (pattern, varargin)
  message = "";
  try
    wave2pfMat (varargin{:});
  catch err
    message = err.message;
  end
  assert (! isempty (regexp (message, pattern)), "got '%s', want '%s'", message, pattern);
end

function same = sameBits (a, b)
  same = size_equal (a, b) && isequal (typecast (a(:), "uint64"), typecast (b(:), "uint64"));
end

function result = inMexhost (mexhost, varargin)
  csv = [tempname() ".csv"];
  [status, text] = system (sprintf ("'%s' %s --csv '%s'", mexhost, sprintf ("'%s' ", varargin{:}), csv));
  assert (status == 0, "%s", text);
  result = dlmread (csv);
  delete (csv);
end

function audioIsReadAsTheHostReadsIt (mexhost, probe)
  samples = [sin((1:20000)' / 9), cos((1:20000)' / 7)];
  for format = {"u8.wav", 8; "s16.wav", 16; "s24.flac", 24; "f64.wav", 64}'
    file = [tempname() format{1}];
    audiowrite (file, samples, 8000, "BitsPerSample", format{2});
    assert (sameBits (inMexhost (mexhost, probe, "0", file), audioread (file)), format{1});
    delete (file);
  end
end

function tablesKeepEveryBit (mexhost, probe)
  rand ("twister", 1);
  values = [-0, 5e-324, realmax, 0.1, 1 / 3, -Inf; (rand (250, 6) - 0.5) .* 10 .^ (600 * rand (250, 6) - 300)];
  file = [tempname() ".txt"];
  fid = fopen (file, "w");
  fprintf (fid, "%.17g,%.17g; %.17g %.17g\t%.17g , %.17g\r\n\n", values');
  fclose (fid);
  assert (sameBits (inMexhost (mexhost, probe, "0", file), values));
  delete (file);
end

function recordingsGiveTheSameBitsInBothHosts (mexhost, module, examples)
  for file = glob (fullfile (examples, "*.wav"))'
    [wave, fs] = audioread (file{1});
    for kind = [0, 0, 1, 1; 1:4]  % pfType, pfMethod
      numbers = num2cell ([fs / 31.25, fs / 62.5 - 1, fs / 62.5, kind']);
      text = cellfun (@num2str, numbers, "UniformOutput", false);
      assert (sameBits (wave2pfMat (wave, numbers{:}), inMexhost (mexhost, module, file{1}, text{:})),
              strjoin ([file, text]));
    end
  end
end

function shapeOfTheWaveformDoesNotMatter ()
  wave = sin ((1:1000)' / 7) .* (1:1000)';
  want = wave2pfMat (wave, 100, 50, 40, 1, 3);
  assert (size (want), [40, 19]);
  for got = {wave', reshape(wave, 10, 10, 10)}
    assert (sameBits (wave2pfMat (got{1}, int16 (100), single (50.9), 40, 1, 3), want));
  end
  assert (size (wave2pfMat (wave, 1001, 0, 40, 9, 9)), [40, 0]);
end

function badArgumentsAreErrorsOfTheHost ()
  good = {[1 2 3 4], 4, 0, 3, 0, 1};
  assertError ("^Usage: out = wave2pfMat\\(wave, frameSize, overlap", 1, 2);
  assertError ("^Usage: out = wave2pfMat\\(wave", good{:}, 7);
  for wave = {single([1 2]), int16([1 2]), "text", true, [1i 2], sparse([1 2]), {1}, struct()}
    assertError ("^wave2pfMat: WAVE must be", wave{1}, good{2:end});
  end
  names = {"FRAMESIZE", "OVERLAP", "PFLEN", "PFTYPE", "PFMETHOD"};
  for position = 1:5
    for value = {[], [1 2], "4", 1i, sparse(0), {4}, struct(), true}
      bad = good;
      bad{1 + position} = value{1};
      assertError (["^wave2pfMat: " names{position} " must be a real numeric scalar"], bad{:});
    end
  end
  for sizes = {{4, 4}, {4, 5}, {0, -1}, {NaN, 0}, {4, -Inf}, {-2^31, 2^31 - 1}}
    assertError ("^wave2pfMat: (frameSize|overlap) = ", good{1}, sizes{1}{:}, good{4:end});
  end
end

function fatalErrorIsAnErrorAndStandsInTheLog ()
  pfType = -getpid ();  % nobody else's: other programs write the log, too
  pattern = sprintf ("^wave2pfMat: Unknown pfType=%d ", pfType);
  log = wanted = "";
  for tries = 1:200
    printed = evalc ("message = assertError (pattern, 1:8, 4, 0, 3, pfType, 1);");
    assert (printed, "\nSaved error log at /tmp/error.log...\n");
    log = fileread ("/tmp/error.log");
    wanted = ["Error: " message(numel("wave2pfMat: ") + 1:end) "\n"];
    if (strcmp (log, wanted))
      break
    end
  end
  assert (log, wanted);
  assert (wave2pfMat ([1 2 3 4], 4, 0, 3, 0, 1), [0; 3; 4]);  % the session goes on
end

[mexhost, module, probe, examples] = argv (){end-3:end};
audioIsReadAsTheHostReadsIt (mexhost, probe);
tablesKeepEveryBit (mexhost, probe);
recordingsGiveTheSameBitsInBothHosts (mexhost, module, examples);
shapeOfTheWaveformDoesNotMatter ();
badArgumentsAreErrorsOfTheHost ();
fatalErrorIsAnErrorAndStandsInTheLog ();
assert (! isempty (strfind (evalc ("help wave2pfMat"), "PFMAT = wave2pfMat (WAVE, FRAMESIZE")));
