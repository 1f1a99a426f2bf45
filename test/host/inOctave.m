% The module in GNU Octave, which is also the measure of mexhost.  Arguments: mexhost, the module built for it,
% the probe, the directory of recordings.

1;

function assertSameBits (a, b, what)
  assert (size_equal (a, b) && isequal (typecast (a(:), "uint64"), typecast (b(:), "uint64")), what);
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
  for format = {"u8.wav", "s16.wav", "s24.flac", "f64.wav"; 8, 16, 24, 64}
    file = [tempname() format{1}];
    audiowrite (file, samples, 8000, "BitsPerSample", format{2});
    assertSameBits (inMexhost (mexhost, probe, "0", file), audioread (file), format{1});
    delete (file);
  end
end

function tablesKeepEveryBit (mexhost, probe)
  values = [-0, 5e-324, realmax; 0.1, 1 / 3, -Inf];
  file = [tempname() ".txt"];
  fid = fopen (file, "w");
  fprintf (fid, "%.17g,%.17g ; %.17g\r\n\n", values');
  fclose (fid);
  assertSameBits (inMexhost (mexhost, probe, "0", file), values, "table");
  delete (file);
end

function eachKindHasTheSameBitsInBothHosts (mexhost, module, recording)
  wave = audioread (recording);
  for kind = [0, 0, 1, 1; 1:4]  % pfType, pfMethod
    numbers = num2cell ([256, 100, 128, kind']);
    text = cellfun (@num2str, numbers, "UniformOutput", false);
    want = inMexhost (mexhost, module, recording, text{:});
    assertSameBits (wave2pfMat (wave, numbers{:}), want, strjoin (text));
  end
end

function badArgumentsAreErrorsOfTheHost ()
  good = {[1 2 3 4], 4, 0, 3, 0, 1};
  names = {"WAVE", "FRAMESIZE", "OVERLAP", "PFLEN", "PFTYPE", "PFMETHOD"};
  for position = 1:6
    for value = {"text", 1i, sparse(0), {4}, struct(), true}
      bad = good;
      bad(position) = value;
      fail ("wave2pfMat (bad{:})", ["^wave2pfMat: " names{position} " must be a real"]);
    end
  end
  fail ("wave2pfMat (good{1:3}, [1 2], good{5:6})", "^wave2pfMat: PFLEN must be");
  fail ("wave2pfMat (single (1), good{2:6})", "^wave2pfMat: WAVE must be");
  fail ("wave2pfMat (good{:}, 7)", '^Usage: out = wave2pfMat\(wave, frameSize, overlap');
  for sizes = [4, 0, NaN, 4, 2^31; 4, -1, 0, -Inf, 0]
    fail ("wave2pfMat (good{1}, sizes(1), sizes(2), good{4:6})", "^wave2pfMat: (frameSize|overlap) = ");
  end
end

function otherShapesAndClassesOfNumbersAreTaken ()
  wave = sin ((1:1000)' / 7) .* (1:1000)';
  want = wave2pfMat (wave, 100, 50, 40, 1, 3);
  assertSameBits (wave2pfMat (reshape (wave, 10, 10, 10), int16 (100), single (50.9), 40, 1, 3), want, "cube");
  assert (size (wave2pfMat (wave, 3000, 2000, 40, 9, 9)), [40, 0]);
end

function fatalErrorIsAnErrorOfTheHost ()
  printed = evalc ("fail ('wave2pfMat (1:8, 4, 0, 3, 7, 1)', '^wave2pfMat: Unknown pfType=7 ');");
  assert (printed, "\nSaved error log at /tmp/error.log...\n");
  assert (wave2pfMat ([1 2 3 4], 4, 0, 3, 0, 1), [0; 3; 4]);  % the session goes on
end

[mexhost, module, probe, examples] = argv (){end-3:end};
audioIsReadAsTheHostReadsIt (mexhost, probe);
tablesKeepEveryBit (mexhost, probe);
eachKindHasTheSameBitsInBothHosts (mexhost, module, fullfile (examples, "speech8k.wav"));
badArgumentsAreErrorsOfTheHost ();
otherShapesAndClassesOfNumbersAreTaken ();
fatalErrorIsAnErrorOfTheHost ();
assert (strfind (get_help_text ("wave2pfMat"), "PFMAT = wave2pfMat (WAVE, FRAMESIZE") > 0);
