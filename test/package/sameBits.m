% What the host's user gets of each call in calls.json is what the library computes of the recordings in examples/, to
% the last bit, of every class and shape; and no function of the package is without such a call.
% Arguments: the program reference, the directories of the recordings, of the package's functions and of calls.json.

1;

function named = formsOf (file)  % of a recording, by the names that calls.json has for them
  [named.double, named.fs] = audioread (file);
  named.int16 = audioread (file, "native");
  named.usualSize = round (0.032 * named.fs);
  named.usualOverlap = named.usualSize / 2;
end

function outputs = outputsOf (call, named)
  outputs = cell (1, call.outputs);
  [outputs{:}] = feval (call.command, argumentsOf (call, named){:});
end

function assertComputedByReference (call, outputs, directory)
  for i = call.reference'
    output = sprintf ("%s.%d", call.name, i);
    fid = fopen (fullfile (directory, output));
    want = fread (fid, Inf, "double");
    fclose (fid);
    got = outputs{i};
    if (isstruct (got))
      got = cell2mat (struct2cell (got));
    end
    assert (isequal (typecast (double (got(:)), "uint64"), typecast (want, "uint64")), "%s of %s", output, directory);
  end
end

[reference, examples, package, lists] = argv (){end-3:end};
calls = jsondecode (fileread (fullfile (lists, "calls.json")));
referred = calls(! cellfun (@isempty, {calls.reference}));
assert (strcat (unique ({referred.command}), ".m"), {dir(fullfile (package, "*.m")).name});
confirm_recursive_rmdir (false);
for recording = {dir(fullfile (examples, "*.wav")).name}
  directory = [tempname() "-" recording{1}];
  mkdir (directory);
  assert (system (sprintf ("'%s' %s '%s' >'%s/console'", reference, recording{1}, directory, directory)), 0);
  named = formsOf (fullfile (examples, recording{1}));
  for wave = {named.double, named.double', named.int16}
    named.wave = wave{1};
    for call = calls'
      outputs = outputsOf (call, named);
      assertComputedByReference (call, outputs, directory);
      if (! isempty (call.sameAs))  % defaults are what the help says
        other = calls(strcmp ({calls.name}, call.sameAs));
        assert (isequaln (outputs, outputsOf (other, named)), "%s is not %s", call.name, other.name);
      end
    end
  end
  rmdir (directory, "s");
end
