% Bad input of every kind for every parameter of every function: an error that names both, and the session goes on.
% What is just inside a parameter's range is taken.  Argument: the directory of calls.json and badCalls.json.

1;

function named = hostValues ()  % by the names that the lists have for them
  named.wave = named.double = named.int16 = sin ((1:2000) / 5);
  named.fs = 8000;
  named.usualSize = 256;
  named.usualOverlap = 128;
  named.belowUsualSize = 255;
  named.aboveUsualSize = 257;
  named.cell = {1};
  named.handle = @sin;
  named.complex = 1i;
  named.sparse = sparse (1);
  named.int64 = int64 (1);
  named.uint16 = uint16 ([1, 2]);
  named.uint32 = uint32 (1);
  named.cube = ones (2, 2, 2);
  named.loud = [0, 1.1];
  named.matrix = ones (2, 2);
  named.rows = ["volume"; "handse"];
  named.folder = tempdir ();
end

function list = asList (values)  % of what jsondecode makes an array or a cell array of
  list = values;
  if (! iscell (values))
    list = num2cell (values);
  end
end

function values = badValues (kinds, name)  % a kind's own, and those of the kind that it is like
  values = {};
  while (! isempty (name))
    kind = kinds(strcmp ({kinds.name}, name));
    values = [values; asList(kind.values)];
    name = kind.like;
  end
end

function call = withValue (call, parameter, value)
  if (isfield (call.inputs, parameter))
    call.inputs.(parameter) = value;
  else
    call.options.(parameter) = value;
  end
end

function message = messageOf (command, arguments, outputs = 1)
  message = "none";
  results = cell (1, outputs);
  try
    evalc ("[results{:}] = feval (command, arguments{:});");
  catch err
    message = err.message;
  end
end

function message = assertRefused (what, pattern, command, varargin)
  message = messageOf (command, varargin{:});
  refused = ! isempty (regexp (message, ["^" command ": " pattern], "once"));
  assert (refused, "%s: '%s' is not '%s'", what, message, pattern);
end

function assertAnswers (call, parameter, values, named, pattern)
  for value = values'
    message = messageOf (call.command, argumentsOf (withValue (call, parameter, value{1}), named));
    assert (! isempty (regexp (message, pattern)), "%s, %s = %s: '%s'", call.name, parameter, disp (value{1}), message);
  end
end

lists = argv (){end};
calls = jsondecode (fileread (fullfile (lists, "calls.json")));
bad = jsondecode (fileread (fullfile (lists, "badCalls.json")));
named = hostValues ();

for row = bad.parameters'
  call = calls(strcmp ({calls.name}, row.call));
  refused = [badValues(bad.kinds, row.kind); asList(row.refused)];
  pattern = ["^" call.command ": .*\\<" toupper(row.parameter) "\\>"];
  assertAnswers (call, row.parameter, refused, named, pattern);
  assertAnswers (call, row.parameter, asList (row.accepted), named, "^none$");
end

for call = calls'  % the numbers of inputs and outputs
  shortest = calls(find (strcmp ({calls.command}, call.command), 1));
  usage = ["usage is .*= " call.command " \\("];
  assertRefused (call.name, usage, call.command, argumentsOf (shortest, named)(1:end-1));
  outputs = call.outputs + 1;
  assertRefused (call.name, "(usage is|.* too many outputs)", call.command, argumentsOf (call, named), outputs);
end

for call = calls(ismember ({calls.name}, {bad.parameters.call}))'  % no option is missing in the list of bad values
  rows = bad.parameters(strcmp ({bad.parameters.call}, call.name));
  options = setdiff ({rows.parameter}, fieldnames (call.inputs));
  unknown = [argumentsOf(call, named), {"noSuchOption", 1}];
  message = assertRefused (call.name, '(usage is|no option is named "noSuchOption")', call.command, unknown);
  listed = regexp (message, '(?<=; there are ).*', "match", "once");
  listed = setdiff (strsplit (listed, ", "), {"", "none"});
  assert (isequal (listed(:), options(:)), "%s: there are %s", call.name, strjoin (listed, ", "));
end

wave = named.wave;
assertRefused ("rows", 'WAVE .* has 2 \(2 x 2000\), take one: wave\(1, :\)', "waveEcho", {[wave; wave], 8000, 0, 0});
assertRefused ("columns", 'WAVE .* has 6 \(2000 x 6\), take one: wave\(:, 1\)', "uvCut", {zeros(2000, 6), 8000});
assertRefused ("no value", "OVERLAP must be followed", "uvCut", {wave, 8000, "overlap"});
assertRefused ("no name", "an option's NAME is wanted", "uvCut", {wave, 8000, 7, 1});
assert (columns (wave2pitch (wave, 8000)), 7);  % the session goes on
