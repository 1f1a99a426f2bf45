% Bad input of every kind for every argument of every function: an error that names both, and the session goes
% on.

1;

function text = shown (arguments)
  text = "";
  for x = arguments
    value = disp (x{1});
    text = [text, class(x{1}), " ", value(1:min (end, 20)), "; "];
  end
end

function rows = among (names, values)  % the same bad values for each of several options
  rows = [names', repmat({values}, numel (names), 1)];
end

function assertRefused (name, arguments, pattern)
  message = "";
  try
    evalc ("feval (name, arguments{:});");
  catch err
    message = err.message;
  end
  assert (! isempty (regexp (message, ["^" name ": " pattern], "once")), "%s (%s): got '%s', want '%s'",
          name, shown (arguments), message, pattern);
end

wave = sin ((1:2000) / 5);
anyClass = {[], "text", true, {1}, struct(), @sin, 1i, sparse(1), int64(1), ones(2, 2, 2), NaN, Inf};
scalar = [anyClass, {[1, 2], -Inf}];
whole = [scalar, {1.5, -1, 1e10}];
vector = [anyClass, {ones(2, 2)}];
samples = [vector, {[0, 2], uint16([1, 2]), uint32(1)}];
words = {[], "foo", 7, {"volume"}, ["volume"; "handse"], 1i, NaN};
flags = {2, "x", [], NaN, [true, true]};
files = {[], "/nowhere/file", "/dev/zero", tempdir(), 7, {"x"}, struct(), ""};
frames = {"frameSize", whole; "overlap", whole};
features = [frames; {"nbits", [scalar, {12}]}];

% function, good arguments, the name of each and its bad values, options and theirs
table = {
  "wave2pitch", {wave, 8000}, {"WAVE", samples; "FS", [whole, {0}]}, ...
    [frames(1, :); {"overlap", [scalar, {1.5, 1e10}]; "nbits", [scalar, {12}]; "pfType", words; ...
     "frameRate", [scalar, {0, 1e9}]; "paramFile", files; "unit", words; "pfLen", [whole, {1}]; ...
     "clarityRatio", [scalar, {2}]}; among({"minPitch", "maxPitch"}, [scalar, {300}]); ...
     among({"pitchRangeMax", "pitchDiffMax", "maxMedianPitchDiff"}, [scalar, {-1, 300}]); ...
     among({"pfWeight", "indexDiffWeight", "maxAmdfLocalMinCount", "minAmdfRange"}, [scalar, {1e10}]); ...
     among({"ppcNum", "dpMethod", "dpPosDiffOrder", "dpUseLocalOptim", "medianFilterOrder"}, whole); ...
     among({"useVolThreshold", "useClarityThreshold", "useClarityWeight", "cutLeadingTrailingZero", ...
            "halfOfFs", "halfOfNbits"}, flags)];
  "wave2f0", {wave, 8000}, {"WAVE", [vector, {uint16([1, 2]), uint32(1), ones(2, 9, "int16")}]; ...
                            "FS", [whole, {3999, 192001}]}, ...
    [among({"maxF0", "frameRate"}, [scalar, {0, 1e9}]); ...
     {"minF0", [scalar, {0, 5}]; "voicingThreshold", [scalar, {-0.1, 1.1}]; "unit", words}];
  "wave2pv", {wave, 8000, 16}, {"WAVE", samples; "FS", whole; "NBITS", [scalar, {12}]}, {};
  "isWaveSilence", {wave, 8000, 16, 5}, ...
    {"WAVE", samples; "FS", whole; "NBITS", scalar; "VOLTH", whole}, {};
  "waveVolumeCheck", {wave}, {"WAVE", samples; "PARAMFILE", files}, {};
  "ptParam", {8000, 16, "acf"}, ...
    {"FS", whole; "NBITS", [scalar, {12}]; "PFTYPE", words; "PARAMFILE", files}, {};
  "endPoints", {wave, 8000, "volume"}, {"WAVE", samples; "FS", whole; "METHOD", words}, ...
    [features; {"volRatio", [whole, {0}]}; ...
     among({"minSegment", "maxSilBetweenWord", "minLastWordDuration"}, [scalar, {-1}])];
  "endPoints", {wave, 8000, "volumeHod"}, {}, {"vhRatio", [whole, {0}]; "diffOrder", [whole, {6}]};
  "endPoints", {wave, 8000, "character"}, {"WAVE", vector}, {"maxNum", [whole, {0, 2e6}]};
  "wave2volume", {wave, 8000}, {"WAVE", samples; "FS", whole}, [features; {"method", [whole, {4}]}];
  "wave2zcr", {wave, 8000}, {"WAVE", samples; "FS", whole}, features;
  "wave2ashod", {wave, 8000}, {"WAVE", samples; "FS", whole}, [features; {"order", [whole, {6}]}];
  "wave2frames", {wave, 8000}, {"WAVE", vector; "FS", whole}, frames;
  "absSpectrogram", {wave, 8000}, {"WAVE", vector; "FS", whole}, ...
    [frames; {"paddedSize", [whole, {257, 2^25}]; "hamming", flags}];
  "uvCut", {wave, 8000}, {"WAVE", samples; "FS", whole}, [frames; {"frameSize", {513}}];
  "waveFilter", {1, 1, wave}, {"B", vector; "A", [vector, {2}]; "WAVE", vector}, {};
  "waveEcho", {wave, 8000, 0.1, 0.5}, ...
    {"WAVE", vector; "FS", whole; "DELAY", [scalar, {-1}]; "GAIN", scalar}, {};
  "waveResample", {wave, 8000, 11025, 16}, ...
    {"WAVE", samples; "OLDFS", whole; "NEWFS", whole; "NBITS", scalar}, {};
  "pitch2wave", {[60, 62], 10, 8000, 1}, ...
    {"PITCH", vector; "PITCHRATE", [scalar, {0}]; "FS", whole; "DURATION", [scalar, {-1}]}, {};
  "note2wave", {60, 1, 8000}, {"PITCH", vector; "DURATION", [vector, {-1, [1 2]}]; "FS", whole}, {};
  "note2pv", {60, 1, 0.1}, {"PITCH", vector; "DURATION", [vector, {-1, [1 2]}]; "TIMESTEP", scalar}, {};
  "pitch2freq", {60}, {"PITCH", anyClass}, {};
  "freq2pitch", {440}, {"FREQUENCY", anyClass}, {};
  "linearScaling", {1:3, 1:9}, {"QUERY", vector; "REFERENCE", vector}, ...
    {"lowerRatio", [scalar, {0}]; "upperRatio", [scalar, {-1}]; "resolution", [whole, {0}]; ...
     "distanceType", [whole, {3}]; "shift", flags};
  "lrShiftDist", {1:3, 1:9, 1}, {"VEC1", vector; "VEC2", vector; "DISTANCETYPE", [whole, {3}]}, {};
  "setCover", {[1, 2; 3, 0], 2}, {"SETS", [anyClass, {-1, 0.5, 1e10}]; "MAXSETNUM", [whole, {0}]}, {};
  "wave2pfMat", {wave, 256, 0, 128, 0, 1}, {"WAVE", vector; "FRAMESIZE", [whole, {0}]; ...
    "OVERLAP", [whole, {256}]; "PFLEN", [whole, {0}]; "PFTYPE", words; "PFMETHOD", [whole, {5}]}, {}};

for entry = table'
  [name, good, arguments, options] = entry{:};
  assertRefused (name, {}, "usage is ");
  for i = 1:rows (arguments)
    for value = arguments{i, 2}
      bad = good;
      bad(i) = value;
      assertRefused (name, bad, [".*" arguments{i, 1}]);
    end
    if (strcmp (arguments{i, 1}, "WAVE"))
      bad{i} = [wave; wave];
      assertRefused (name, bad, 'WAVE must be .* has 2 \(2 x 2000\), take one: wave\(1, :\)');
      bad{i} = int16 (zeros (2000, 6));
      assertRefused (name, bad, 'WAVE must be .* has 6 \(2000 x 6\), take one: wave\(:, 1\)');
    end
  end
  for i = 1:rows (options)
    for value = options{i, 2}
      assertRefused (name, [good, {options{i, 1}, value{1}}], toupper (options{i, 1}));
    end
    assertRefused (name, [good, options(i, 1)], [toupper(options{i, 1}) " must be followed"]);
  end
  if (isempty (options))
    assertRefused (name, [good, {1, 1, 1}], "usage is ");
  else
    assertRefused (name, [good, {"noSuchOption", 1}], "no option is named");
    assertRefused (name, [good, {7, 1}], "an option's NAME is wanted");
  end
end
assert (columns (wave2pitch (wave, 8000)), 7);  % the session goes on
